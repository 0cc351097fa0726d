#pragma once

#include "model/container_ids.h"
#include "model/usb_records.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tamberline {

/// The buses of the USB section, in report order; `containerIDs` comes from the registry of the
/// same scan. "tamberline_is_built_in" and "tamberline_is_tunneled" are flags of reports made here.
std::vector<USBBus> parseUSB(const nlohmann::json& report, const ContainerIDs& containerIDs);

/// One level of devices and what is behind them; an entry without a name goes with its subtree.
std::vector<USBDevice> parseUSBDevices(const nlohmann::json& items,
                                       const ContainerIDs& containerIDs);

/// Drives behind a Thunderbolt or USB4 device, from a list of our own; only Linux tells of them.
std::vector<USBDevice> parseTunneledDrives(const nlohmann::json& items);

/// The 0-based port of the computer in a location.
std::int64_t physicalPortOf(std::int64_t locationID);

/// The location of a text such as "0x01100000 / 1"; absent when it holds none.
std::optional<std::int64_t> parseLocationID(std::string_view text);

} // namespace tamberline
