#pragma once

#include "inventory/inventory.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// One difference between two states.
struct Change {
  enum class Kind : std::uint8_t {
    came,
    went,
    moved,
    faster,
    slower,
    drawsMore,
    drawsLess,
    suppliesMore,
    suppliesLess,
    mounted,
    unmounted,
  };
  enum class Unit : std::uint8_t { none, gbps, milliamperes, watts };

  Kind kind = Kind::came;
  /// As it is now; as it was if it went.
  InventoryItem item = {};
  /// Where it is now, or was if it went.
  std::string place = {};
  /// Where it was, if it moved.
  std::string placeBefore = {};
  Unit unit = Unit::none;
  /// The two values of a change that has a unit.
  double before = 0;
  double after = 0;
  /// The volume that was mounted or unmounted.
  InventoryVolume volume = {};
};

/// What is different, in the order of the second inventory; what went is last. What is below
/// something that moved did not move itself.
std::vector<Change> comparisonOf(const Inventory& before, const Inventory& after);

} // namespace tamberline
