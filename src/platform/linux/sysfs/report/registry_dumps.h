// The registry tool's dumps of the machine as values, which `asPropertyList` converts to text.
#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline::sysfs {

/// The USB-C ports. A connection counts as active only if its use is known: data, video, power in,
/// or power out to a partner that has no data although the port's data is known. Our own keys,
/// which begin with "Tamberline", contain what else the kernel reports. A port that powers the
/// computer and has data or video has a second entry, like that of an adapter.
nlohmann::json portControllerDump(const Machine& machine);

/// How the machine is powered, and the power out of USB-C ports that measure it. The power that
/// both ends agreed on is not a measurement.
nlohmann::json portPowerDump(const Machine& machine);

/// The currents that USB-C ports offer at 5 V.
nlohmann::json deviceTreeDump(const Machine& machine);

/// What the USB devices can do, and the containers of the hubs that appear on two buses.
nlohmann::json usbHostDeviceDump(const Machine& machine);

/// Each USB-C port as a source or sink of power.
nlohmann::json powerSourceDump(const Machine& machine);

} // namespace tamberline::sysfs
