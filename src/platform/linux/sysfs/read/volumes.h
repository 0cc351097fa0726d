#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/machine_paths.h"

namespace tamberline::sysfs {

/// Gives each USB device, and each drive behind a Thunderbolt or USB4 enclosure, the mounted
/// volumes on it, also those within encrypted devices and volume groups. A file system on several
/// devices is the first one's. Mount points that are invalid UTF-8, and so could not be handed on
/// as they are, are left out.
void addVolumes(const MachinePaths& paths, Machine& machine);

} // namespace tamberline::sysfs
