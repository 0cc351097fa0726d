#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// The position of a USB device: the bus, and the port of each hub on the way. An address without
/// ports is the root hub, which is the controller itself.
struct UsbAddress {
  int bus = 0;
  std::vector<int> ports = {};

  bool isRootHub() const { return ports.empty(); }
  /// The address of the hub that the device is plugged into. Not to be called for a root hub.
  UsbAddress parent() const;
  /// The kernel's name: "usb1", "1-4.2".
  std::string name() const;

  // NOLINTNEXTLINE(modernize-use-nullptr): false alarm in the generated comparison with 0
  friend auto operator<=>(const UsbAddress&, const UsbAddress&) = default;
};

/// Parses the kernel's name of a device; absent for other names, such as those of interfaces, and
/// for addresses with too many ports.
std::optional<UsbAddress> usbAddressOf(std::string_view deviceName);

/// The address of what is plugged into the port with this name: "1-3" for "usb1-port3", "1-4.2" for
/// "1-4-port2".
std::optional<UsbAddress> usbAddressOfPort(std::string_view portName);

} // namespace tamberline::sysfs
