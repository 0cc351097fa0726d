#pragma once

#include "model/device_ability.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string_view>

namespace tamberline {

/// The most that the links of a device can be, from its mode: "thunderbolt_three" has two lanes of
/// 20 Gb/s. USB4 has two lanes; that each can carry 20 Gb/s is certain of a Thunderbolt 4 device
/// only. Absent for an unknown mode.
std::optional<LinkLimit> linkLimitOfMode(std::string_view mode);

/// The same for the computer's end, from a bus entry: from "tamberline_generation", which only
/// reports made on Linux have, or from the name that a Mac gives to its own USB4 ports, which are
/// all Thunderbolt 4 or newer.
std::optional<LinkLimit> linkLimitOfHost(const nlohmann::json& bus);

/// What a link between two ends can be at most; absent if either end is unknown.
std::optional<LinkLimit> linkLimitBetween(const std::optional<LinkLimit>& first,
                                          const std::optional<LinkLimit>& second);

} // namespace tamberline
