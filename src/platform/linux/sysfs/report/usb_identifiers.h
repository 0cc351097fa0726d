// By what the reports tell USB devices apart.
#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <cstdint>
#include <map>
#include <string>

namespace tamberline::sysfs {

/// A location for each USB device: the port of the case in bits 24 to 31, 255 when unknown, and
/// below them what no other device has.
std::map<UsbAddress, std::uint32_t> usbLocations(const UsbTopology& usb,
                                                 const PhysicalPorts& ports);

/// An identifier for each hub that shows itself on two buses, the same for its two halves: the one
/// that both describe, where no third hub describes the same (some makers give all their hubs one
/// identifier), or else one for the two ports that the kernel knows as one receptacle.
std::map<UsbAddress, std::string> containersOfHubHalves(const UsbTopology& usb);

} // namespace tamberline::sysfs
