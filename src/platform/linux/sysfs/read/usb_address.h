#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// Where something is plugged in: the bus, and the port of each hub on the way. No port at all is
/// the hub that the controller itself is.
struct UsbAddress {
  int bus = 0;
  std::vector<int> ports = {};

  bool isRootHub() const { return ports.empty(); }
  /// Of the hub that it is plugged into; not for a root hub.
  UsbAddress parent() const;
  /// The kernel's name: "usb1", "1-4.2".
  std::string name() const;

  // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison that the compiler makes for a 0
  friend auto operator<=>(const UsbAddress&, const UsbAddress&) = default;
};

/// From the kernel's name of a device; absent for other names (interfaces, say), and beyond what
/// hubs can be nested.
std::optional<UsbAddress> usbAddressOf(std::string_view deviceName);

/// What hangs on the port with this name: "usb1-port3" is for "1-3", "1-4-port2" for "1-4.2".
std::optional<UsbAddress> usbAddressOfPort(std::string_view portName);

} // namespace tamberline::sysfs
