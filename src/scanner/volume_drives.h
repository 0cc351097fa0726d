// Which volumes a scan shows, and which of them share a drive.
#pragma once

#include "model/usb_records.h"

#include <set>
#include <string>
#include <vector>

namespace tamberline {

/// The mount points of all volumes of all devices.
std::set<std::string> mountPointsOn(const std::vector<USBBus>& buses);

/// The mount points of all volumes of the device that has one at this mount point, that one among
/// them; that one alone where no device is known to have it.
std::set<std::string> mountPointsOfDrive(const std::vector<USBBus>& buses,
                                         const std::string& mountPoint);

} // namespace tamberline
