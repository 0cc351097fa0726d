#pragma once

#include "model/power_records.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace tamberline {

/// What the power section says; absent where it has no such entry, which never means that an
/// earlier value became untrue.
struct PowerReading {
  std::optional<BatteryInfo> battery;
  std::optional<ChargerInfo> charger;
};

PowerReading parsePower(const nlohmann::json& report);

} // namespace tamberline
