#pragma once

#include "platform/linux_devices/hardware_names.h"
#include "platform/linux_devices/machine.h"
#include "platform/linux_devices/machine_paths.h"

namespace tamberline::sysfs {

/// Reads everything anew, without being root and without waking anything. What cannot be read is
/// left out; devices may come and go meanwhile. Any thread.
Machine readMachine(const MachinePaths& paths, const HardwareDatabase& database);

} // namespace tamberline::sysfs
