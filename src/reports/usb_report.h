#pragma once

#include "model/usb_host_devices.h"
#include "model/usb_records.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tamberline {

/// The buses of the USB section, in report order; the container identifiers and abilities come from
/// the registry in the same scan. Only reports made by this program have the flags
/// "tamberline_is_built_in" and "tamberline_is_tunneled".
std::vector<USBBus> parseUSB(const nlohmann::json& report, const ContainerIDs& containerIDs,
                             const USBAbilities& abilities = {});

/// One level of devices and everything behind them; an entry without a name is dropped with its
/// subtree.
std::vector<USBDevice> parseUSBDevices(const nlohmann::json& items,
                                       const ContainerIDs& containerIDs,
                                       const USBAbilities& abilities = {});

/// The drives behind a Thunderbolt or USB4 device. Only the reports made on Linux list them.
std::vector<USBDevice> parseTunneledDrives(const nlohmann::json& items);

/// The 0-based index of the computer's port in a location.
std::int64_t physicalPortOf(std::int64_t locationID);

/// The location in a text such as "0x01100000 / 1"; absent if there is none.
std::optional<std::int64_t> parseLocationID(std::string_view text);

} // namespace tamberline
