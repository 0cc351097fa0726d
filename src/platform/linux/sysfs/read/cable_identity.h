// Decodes what a USB-C cable says about itself in the words of its identity (USB Power Delivery,
// "Discover Identity").
#pragma once

#include <cstdint>
#include <optional>

namespace tamberline::sysfs {

/// Absent values are unknown.
struct CableIdentity {
  std::optional<std::int64_t> maxMilliamperes = {};
  std::optional<std::int64_t> maxMillivolts = {};
  std::optional<std::int64_t> megabitsOfLane = {};

  friend bool operator==(const CableIdentity&, const CableIdentity&) = default;
};

/// `header` is the first word of the identity and `product` the one about the type of product. Only
/// from Power Delivery 3 on has the latter a voltage; before, the same bits meant something else.
CableIdentity cableIdentityIn(std::uint64_t header, std::uint64_t product, bool isPowerDelivery3);

} // namespace tamberline::sysfs
