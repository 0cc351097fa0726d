#pragma once

#include "platform/linux/sysfs/read/machine_reader.h"

namespace tamberline {

/// Asks udev's database of hardware, which is opened when it is first asked; an empty answer where
/// there is none. One call at a time.
HardwareDatabase udevHardwareNames();

} // namespace tamberline
