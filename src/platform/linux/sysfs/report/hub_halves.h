#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <map>
#include <string>

namespace tamberline::sysfs {

/// An identifier for each hub that shows itself on two buses, the same for its two halves: the one
/// that both describe, where no third hub describes the same (some makers give all their hubs one
/// identifier), or else one for the two ports that the kernel knows as one receptacle.
std::map<UsbAddress, std::string> containersOfHubHalves(const UsbTopology& usb);

} // namespace tamberline::sysfs
