#pragma once

#include "platform/macos/mounted_media.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <set>

namespace tamberline {

/// The section that contains the USB devices since release 26 of the system.
constexpr const char* usbHostSectionKey = "SPUSBHostDataType";

/// The computer's ports with Thunderbolt, counted from 0.
using ThunderboltPorts = std::set<std::int64_t>;

/// Converts the newer section's report to the format of the older section, which parseUSB reads.
/// `volumes` go to the first device at their location.
///
/// No device is lost. The port tree shows the devices of the computer's own controllers only on
/// ports with Thunderbolt, and it recognises these controllers by their names, though not all of
/// them. So a device of such a controller gets a bus with a recognised name if its location is on
/// one of `ports`. Every other device gets a bus with a name that is not recognised, which has a
/// card. Examples are the hub built into the front of a desktop computer and devices on its larger
/// ports. The computer's own buses without devices get no card.
///
/// The result lacks what the newer section does not contain, such as the current that a port
/// offers, and values of an unexpected type. Names may contain any characters. Devices nested so
/// deeply that the result could not be decoded are left out.
nlohmann::json usbReportFrom(const nlohmann::json& hostReport, VolumesByLocation volumes,
                             const ThunderboltPorts& ports);

/// Whether the ports with Thunderbolt are needed to place the report's devices.
bool needsThunderboltPorts(const nlohmann::json& hostReport);

} // namespace tamberline
