#pragma once

#include "model/thunderbolt_records.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string_view>
#include <vector>

namespace tamberline {

/// The host ports of the Thunderbolt section, in report order.
std::vector<ThunderboltBus> parseThunderbolt(const nlohmann::json& report);

/// One level of devices and everything behind them; an entry without a name is dropped with its
/// subtree. `upstream` is what the other end of their links can be at most; absent if unknown.
std::vector<ThunderboltDevice> parseThunderboltDevices(const nlohmann::json& items,
                                                       const std::optional<LinkLimit>& upstream);

/// The receptacle object under `key`; an empty object if absent.
const nlohmann::json& receptacleTag(const nlohmann::json& entry, std::string_view key);

} // namespace tamberline
