#pragma once

#include "expectation/expectation.h"
#include "inventory/inventory.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// In what a device differs from its expectation.
struct Shortfall {
  enum class Kind : std::uint8_t { port, speed, volume };

  Kind kind = Kind::port;
  /// The missing volume.
  std::string volume = {};

  friend bool operator==(const Shortfall&, const Shortfall&) = default;
};

struct CheckedExpectation {
  Expectation expectation;
  /// The index of the device that was found for it; absent if it is missing.
  std::optional<std::size_t> item;
  std::vector<Shortfall> shortfalls;

  bool isMet() const { return item && shortfalls.empty(); }
};

/// One result for each expectation, in their order. A device meets one expectation at most, so two
/// equal expectations need two devices. Devices are shared out so that as many expectations as
/// possible are met.
std::vector<CheckedExpectation> checkedAgainst(const Inventory& inventory,
                                               const std::vector<Expectation>& expectations);

} // namespace tamberline
