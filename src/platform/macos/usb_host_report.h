#pragma once

#include "platform/macos/mounted_media.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline {

/// The report of the section "SPUSBHostDataType", in which the system keeps its USB devices since
/// release 26, in the shape of the section that it left empty: what parseUSB reads. `volumes` go to
/// the first device at their location.
///
/// Absent in the result is what the newer section does not say: the current that a port offers, and
/// what has another type than expected. Names are handed on with whatever is in them. Devices
/// nested so deep that the result could not be decoded any more are left out.
nlohmann::json usbReportFrom(const nlohmann::json& hostReport, VolumesByLocation volumes);

} // namespace tamberline
