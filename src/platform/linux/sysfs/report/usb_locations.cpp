#include "platform/linux/sysfs/report/usb_locations.h"

namespace tamberline::sysfs {

std::map<UsbAddress, std::uint32_t> usbLocations(const UsbTopology& usb,
                                                 const PhysicalPorts& ports) {
  constexpr std::uint32_t noPort = 0xFF;
  constexpr unsigned portShift = 24;
  std::map<UsbAddress, std::uint32_t> locations;
  for (const auto& [address, device] : usb.devices) {
    const auto port = ports.portOf(address);
    const auto number = static_cast<std::uint32_t>(locations.size() & 0xFFFFFFU);
    locations[address] =
        ((port ? static_cast<std::uint32_t>(*port) : noPort) << portShift) | number;
  }
  return locations;
}

} // namespace tamberline::sysfs
