#pragma once

#include "platform/linux/sysfs/read/hardware_names.h"
#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/machine_paths.h"
#include "platform/linux/sysfs/read/usb_texts.h"

namespace tamberline::sysfs {

/// Reads everything, without being root and without waking anything. What cannot be read is left
/// out; devices may come and go meanwhile. `texts` has what USB devices told of themselves before.
/// Any thread, one call at a time.
Machine readMachine(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbTextKeeper& texts);

} // namespace tamberline::sysfs
