#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <cstdint>
#include <map>

namespace tamberline::sysfs {

/// A location for each USB device: the port of the case in bits 24 to 31, 255 when unknown, and
/// below them what no other device has.
std::map<UsbAddress, std::uint32_t> usbLocations(const UsbTopology& usb,
                                                 const PhysicalPorts& ports);

} // namespace tamberline::sysfs
