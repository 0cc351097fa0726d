#pragma once

#include "base/look_up.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>

namespace tamberline {

/// What the registry knows about USB devices, by their location. A location is a 32-bit quantity.
/// The registry may write one above 0x7fffffff as a negative number while the USB report writes it
/// in hexadecimal, so both spellings are looked up.
template <typename Value>
class ByUSBLocation {
public:
  /// Keeps the first value for a location.
  void add(std::int64_t locationID, const Value& value) {
    values_.try_emplace(locationID, value);
    valuesByUnsignedLocation_.try_emplace(unsignedLocation(locationID), value);
  }

  std::optional<Value> find(std::int64_t locationID) const {
    std::optional<Value> asSpelled = lookUp(values_, locationID);
    return asSpelled ? asSpelled : lookUp(valuesByUnsignedLocation_, unsignedLocation(locationID));
  }

  std::size_t size() const { return values_.size(); }

private:
  static std::int64_t unsignedLocation(std::int64_t locationID) {
    constexpr std::int64_t twoToThePower32 = std::int64_t{1} << 32U;
    const bool isWrittenSigned =
        locationID < 0 && locationID >= std::numeric_limits<std::int32_t>::min();
    return isWrittenSigned ? locationID + twoToThePower32 : locationID;
  }

  std::unordered_map<std::int64_t, Value> values_;
  std::unordered_map<std::int64_t, Value> valuesByUnsignedLocation_;
};

} // namespace tamberline
