#pragma once

#include "model/true_link.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

namespace tamberline {

/// The link that a receptacle's object tells of; absent when it names no speed.
///
/// "tamberline_link_transmit_gbps", "…_receive_gbps", "…_transmit_lanes" and "…_receive_lanes" hold
/// decimal texts. Reports made here have them; no other tool writes them. Without them
/// "current_speed_key" and "current_link_width_key" are read as the Mac means them, which has
/// several ways of saying the same:
/// - "Up to 40 Gb/s x1" with the width "0x2": 40 Gb/s in all. The two lanes count as one link.
/// - "Up to 10 Gb/s x2": two links of 10 Gb/s.
/// - "20 Gb/s" with the width "0x2": each lane.
/// - "80 Gb/s": in all.
/// - "120 Gb/s": three of the four lanes carry 40 Gb/s each to the device, one back.
std::optional<TrueLink> parseTrueLink(const nlohmann::json& receptacle);

/// The same of a device, which may have the keys of its own beside its receptacle upstream.
std::optional<TrueLink> parseTrueLink(const nlohmann::json& upstream, const nlohmann::json& device);

} // namespace tamberline
