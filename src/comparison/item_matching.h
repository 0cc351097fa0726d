#pragma once

#include "inventory/inventory.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tamberline {

/// Which item of one inventory is which of another.
class ItemMatching {
public:
  /// Items with an identity are matched by it, wherever they are. If several have the same one, as
  /// cheap sticks do, those in the same place are matched first. Items without an identity are
  /// matched if they are alike and in the same place below what was matched already.
  ItemMatching(const Inventory& before, const Inventory& after);

  std::optional<std::size_t> after(std::size_t before) const { return after_.at(before); }
  std::optional<std::size_t> before(std::size_t after) const { return before_.at(after); }

private:
  void match(std::size_t before, std::size_t after);
  void matchByIdentity(const Inventory& before, const Inventory& after);
  void matchByPlace(const Inventory& before, const Inventory& after);

  std::vector<std::optional<std::size_t>> after_;
  std::vector<std::optional<std::size_t>> before_;
};

} // namespace tamberline
