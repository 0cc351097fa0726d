#include "platform/linux/sysfs/read/cable_identity.h"

namespace tamberline::sysfs {
namespace {

std::uint64_t bitsOf(std::uint64_t word, unsigned lowest, unsigned count) {
  return (word >> lowest) & ((std::uint64_t{1} << count) - 1);
}

bool isCable(std::uint64_t header) {
  constexpr std::uint64_t passiveCable = 3;
  constexpr std::uint64_t activeCable = 4;
  const std::uint64_t productType = bitsOf(header, 27, 3);
  return productType == passiveCable || productType == activeCable;
}

std::optional<std::int64_t> megabitsOfLane(std::uint64_t product) {
  switch (bitsOf(product, 0, 3)) {
  case 0:
    return 480; // USB 2 only
  case 1:
    return 5'000;
  case 2:
    return 10'000;
  case 3:
    return 20'000;
  case 4:
    return 40'000;
  default:
    return std::nullopt;
  }
}

std::optional<std::int64_t> milliamperes(std::uint64_t product) {
  switch (bitsOf(product, 5, 2)) {
  case 1:
    return 3'000;
  case 2:
    return 5'000;
  default:
    return std::nullopt;
  }
}

/// The standard has withdrawn 30 and 40 V; such cables count as cables of 20 V.
std::optional<std::int64_t> millivolts(std::uint64_t product, bool isPowerDelivery3) {
  constexpr std::uint64_t fiftyVolts = 3;
  const std::uint64_t code = bitsOf(product, 9, 2);
  if (!isPowerDelivery3) {
    return std::nullopt;
  }
  return code == fiftyVolts ? 50'000 : 20'000;
}

} // namespace

CableIdentity cableIdentityIn(std::uint64_t header, std::uint64_t product, bool isPowerDelivery3) {
  if (!isCable(header)) {
    return {};
  }
  return {.maxMilliamperes = milliamperes(product),
          .maxMillivolts = millivolts(product, isPowerDelivery3),
          .megabitsOfLane = megabitsOfLane(product)};
}

} // namespace tamberline::sysfs
