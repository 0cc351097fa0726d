#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <map>
#include <optional>
#include <vector>

namespace tamberline::sysfs {

/// A port of the case: a USB-C port; where the kernel lists none, or where it cannot be told which
/// one it is, a USB4 port or the port of a host that does not tell its ports apart.
struct PhysicalPort {
  std::optional<RouterAddress> host = {};  // absent without Thunderbolt or USB4
  std::vector<RouterAddress> routers = {}; // directly behind the port
};

/// What belongs to which port of the case, as far as firmware says so.
struct PhysicalPorts {
  /// By a number that counts from 0; USB-C ports have the kernel's.
  std::map<int, PhysicalPort> ports;
  /// The port of the case that a port of a hub is, by what hangs on it.
  std::map<UsbAddress, int> portOfUsbPort;

  /// The port of the case that a device is plugged into, also through hubs; absent when unknown.
  std::optional<int> portOf(const UsbAddress& address) const;
};

/// Firmware ties ports by links, or by telling a place on the case that only one of them is at.
/// What it does not tie is told by what is connected: as many routers as USB-C ports with a partner
/// are there in the order of both.
PhysicalPorts physicalPortsOf(const Machine& machine);

} // namespace tamberline::sysfs
