#pragma once

#include "model/power_records.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace tamberline {

/// The content of the power section. A missing entry is absent, which never means that an earlier
/// value has become invalid.
struct PowerReading {
  std::optional<BatteryInfo> battery;
  std::optional<ChargerInfo> charger;
};

PowerReading parsePower(const nlohmann::json& report);

} // namespace tamberline
