// The three sections of the hardware report, as JSON objects with the section's name as only key.
#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline::sysfs {

/// One entry for each port of the case, whether or not it knows Thunderbolt or USB4; its routers
/// hang below it. Speeds are those of one lane; keys of our own ("tamberline_…") have the whole
/// link.
nlohmann::json thunderboltSection(const Machine& machine);

/// Two entries at most for each bus. One, which the records take for a controller of the computer's
/// own USB-C ports, has what is plugged into ports that firmware ties to the case; the other has
/// the rest. The location of a device holds the port of the case (255 for none) and a number of its
/// own.
nlohmann::json usbSection(const Machine& machine);

/// The list of volumes of a device or a drive.
nlohmann::json volumeEntries(const std::vector<Volume>& volumes);

/// The first battery, and what powers the machine; where nothing does and something could, an
/// adapter that is not connected.
nlohmann::json powerSection(const Machine& machine);

} // namespace tamberline::sysfs
