#pragma once

#include "platform/macos/mounted_media.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <set>

namespace tamberline {

/// The section in which the system keeps its USB devices since release 26.
constexpr const char* usbHostSectionKey = "SPUSBHostDataType";

/// The ports of the computer with Thunderbolt, counted from 0.
using ThunderboltPorts = std::set<std::int64_t>;

/// The newer section's report in the shape of the section that the system left empty: what parseUSB
/// reads. `volumes` go to the first device at their location.
///
/// No device is lost. The port tree looks for the devices of the computers' own controllers on the
/// ports with Thunderbolt alone, and knows these controllers by their names, though not all of
/// them. So a device of a computer's own controller whose location is on one of `ports` gets a bus
/// with a name that is known, and every other one a bus whose name is not, which has a card: the
/// hub built into the front of a desktop, what is on its larger ports. The computers' own buses
/// without devices have none.
///
/// Absent in the result is what the newer section does not say: the current that a port offers, and
/// what has another type than expected. Names are handed on with whatever is in them. Devices
/// nested so deep that the result could not be decoded any more are left out.
nlohmann::json usbReportFrom(const nlohmann::json& hostReport, VolumesByLocation volumes,
                             const ThunderboltPorts& ports);

/// Whether it takes the ports to place a device of the report.
bool needsThunderboltPorts(const nlohmann::json& hostReport);

} // namespace tamberline
