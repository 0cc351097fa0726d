#pragma once

#include "platform/linux/sysfs/read/machine_reader.h"

namespace tamberline {

/// Looks up names in udev's hardware database, which is opened on first use. The names are empty if
/// there is no database. One call at a time.
HardwareDatabase udevHardwareNames();

} // namespace tamberline
