#pragma once

#include "platform/linux/sysfs/read/hardware_names.h"
#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/machine_paths.h"
#include "platform/linux/sysfs/read/usb_texts.h"

namespace tamberline::sysfs {

/// The USB devices and the ports of their hubs, without volumes. A device that has not answered yet
/// is there with what the kernel and udev know of it, and one that does not name itself has the
/// names of the database.
UsbTopology readUsb(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbTextKeeper& texts);

} // namespace tamberline::sysfs
