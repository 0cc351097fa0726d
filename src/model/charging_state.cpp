#include "model/charging_state.h"

#include <algorithm>

namespace tamberline {

bool ChargingReasons::contains(std::int64_t bit) const {
  const auto masks = {notCharging, slowCharging, inhibited};
  return std::any_of(masks.begin(), masks.end(), [bit](const std::optional<std::int64_t>& mask) {
    return (static_cast<std::uint64_t>(mask.value_or(0)) & static_cast<std::uint64_t>(bit)) != 0;
  });
}

} // namespace tamberline
