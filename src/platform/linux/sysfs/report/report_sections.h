// The three sections of the hardware report, as JSON objects with the section's name as the only
// key.
#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline::sysfs {

/// One entry for each port of the case, with or without Thunderbolt or USB4, which contains the
/// port's routers. Speeds are those of one lane; our own keys ("tamberline_…") have the speed of
/// the whole link.
nlohmann::json thunderboltSection(const Machine& machine);

/// At most two entries for each bus. One has what is plugged into ports that firmware links to the
/// case; the records treat it as a controller of the computer's own USB-C ports. The other has the
/// rest. The location of a device contains the port of the case (255 for none) and a unique number.
nlohmann::json usbSection(const Machine& machine);

/// The volumes of a device or a drive as a list.
nlohmann::json volumeEntries(const std::vector<Volume>& volumes);

/// The first battery and the adapter. If no adapter powers the machine but one could, the adapter
/// is reported as not connected.
nlohmann::json powerSection(const Machine& machine);

} // namespace tamberline::sysfs
