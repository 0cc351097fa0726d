#pragma once

#include "model/true_link.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace tamberline {

/// The link that a receptacle's object describes; absent if it contains no speed.
///
/// "tamberline_link_transmit_gbps", "…_receive_gbps", "…_transmit_lanes" and "…_receive_lanes" are
/// decimal texts. Only reports made by this program have them. Without them "current_speed_key" and
/// "current_link_width_key" are read as a Mac means them, which can say the same in several ways:
/// - "Up to 40 Gb/s x1" with the width "0x2": 40 Gb/s in total. The two lanes count as one link.
/// - "Up to 10 Gb/s x2": two links of 10 Gb/s.
/// - "20 Gb/s" with the width "0x2": each lane.
/// - "80 Gb/s": in total.
/// - "120 Gb/s": three of the four lanes carry 40 Gb/s each to the device, one back.
std::optional<TrueLink> parseTrueLink(const nlohmann::json& receptacle);

/// The same for a device, which may also have these keys itself, next to its upstream receptacle.
std::optional<TrueLink> parseTrueLink(const nlohmann::json& upstream, const nlohmann::json& device);

} // namespace tamberline
