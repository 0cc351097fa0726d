// Identifiers that distinguish USB devices in the reports.
#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <cstdint>
#include <map>
#include <string>

namespace tamberline::sysfs {

/// A location for each USB device: the port of the case in bits 24 to 31, 255 if unknown, and a
/// unique number in the bits below.
std::map<UsbAddress, std::uint32_t> usbLocations(const UsbTopology& usb,
                                                 const PhysicalPorts& ports);

/// An identifier for each hub that appears on two buses, shared by its two halves. It is the
/// container identifier in the descriptors of both if no third hub has the same one (some makers
/// give all their hubs one identifier). Otherwise it is made of the two ports that the kernel
/// reports as one receptacle.
std::map<UsbAddress, std::string> containersOfHubHalves(const UsbTopology& usb);

} // namespace tamberline::sysfs
