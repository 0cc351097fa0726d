// What the registry tool would dump of the machine, as values; `asPropertyList` makes texts of
// them.
#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline::sysfs {

/// The USB-C ports. A connection counts only where it is known what it is for: data, video, power
/// coming in, or power going out to something that shows no data on a port whose data is known. Two
/// keys of our own, "TamberlinePartner" and "TamberlineAgreed…", tell what else the kernel knows. A
/// port that powers the computer and has data has a second entry, as an adapter's.
nlohmann::json portControllerDump(const Machine& machine);

/// The power that goes out on USB-C ports that measure it; what both ends agreed on is no
/// measurement.
nlohmann::json portPowerDump(const Machine& machine);

/// The currents that USB-C ports offer at 5 V.
nlohmann::json deviceTreeDump(const Machine& machine);

/// The containers of the hubs that show themselves twice.
nlohmann::json usbHostDeviceDump(const Machine& machine);

/// Each USB-C port as a source or taker of power.
nlohmann::json powerSourceDump(const Machine& machine);

} // namespace tamberline::sysfs
