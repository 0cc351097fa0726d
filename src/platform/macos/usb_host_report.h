#pragma once

#include "platform/macos/mounted_media.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <set>

namespace tamberline {

/// The ports of the computer with Thunderbolt, counted from 0.
using ThunderboltPorts = std::set<std::int64_t>;

/// The report of the section "SPUSBHostDataType", in which the system keeps its USB devices since
/// release 26, in the shape of the section that it left empty: what parseUSB reads. `volumes` go to
/// the first device at their location.
///
/// USBBus knows the computers' own controllers by their names, and not all of them. Here one that
/// it does not know gets such a name behind its own, if the port that it serves is one of `ports`,
/// so that its devices stand on that port; on another they would stand nowhere.
///
/// Absent in the result is what the newer section does not say: the current that a port offers, and
/// what has another type than expected. Names are handed on with whatever is in them. Devices
/// nested so deep that the result could not be decoded any more are left out.
nlohmann::json usbReportFrom(const nlohmann::json& hostReport, VolumesByLocation volumes,
                             const ThunderboltPorts& ports);

/// Whether it takes the ports to place a controller of the report.
bool needsThunderboltPorts(const nlohmann::json& hostReport);

} // namespace tamberline
