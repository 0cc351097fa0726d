#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <map>
#include <optional>
#include <vector>

namespace tamberline::sysfs {

/// A port of the case: a USB-C port. If the kernel lists none or the right one is unknown, it is a
/// USB4 port or the port of a host that does not report its ports.
struct PhysicalPort {
  std::optional<RouterAddress> host = {};  // absent without Thunderbolt or USB4
  std::vector<RouterAddress> routers = {}; // directly behind the port
};

/// What belongs to which port of the case, as far as known.
struct PhysicalPorts {
  /// By number, counted from 0; USB-C ports have the kernel's numbers.
  std::map<int, PhysicalPort> ports;
  /// The port of the case for the port of a hub, by the address of what is plugged into the latter.
  std::map<UsbAddress, int> portOfUsbPort;

  /// The port of the case that a device is plugged into, directly or through hubs; absent if
  /// unknown.
  std::optional<int> portOf(const UsbAddress& address) const;
};

/// Matches ports by firmware's links, or by a location on the case that only one of them has. The
/// rest is derived from what is connected: if there are as many routers as USB-C ports with a
/// partner, they are matched in order.
PhysicalPorts physicalPortsOf(const Machine& machine);

} // namespace tamberline::sysfs
