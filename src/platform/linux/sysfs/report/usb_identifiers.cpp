#include "platform/linux/sysfs/report/usb_identifiers.h"

#include <vector>

namespace tamberline::sysfs {
namespace {

bool areHalves(const UsbDevice& first, const UsbDevice& second) {
  return first.isHub && second.isHub && first.isSuperSpeed() != second.isSuperSpeed();
}

void pairByDescriptors(const UsbTopology& usb, std::map<UsbAddress, std::string>& containers) {
  std::map<std::string, std::vector<UsbAddress>> hubs;
  for (const auto& [address, device] : usb.devices) {
    if (device.isHub && device.descriptorContainerId) {
      hubs[*device.descriptorContainerId].push_back(address);
    }
  }
  for (const auto& [container, addresses] : hubs) {
    if (addresses.size() == 2 &&
        areHalves(usb.devices.at(addresses[0]), usb.devices.at(addresses[1]))) {
      containers[addresses[0]] = container;
      containers[addresses[1]] = container;
    }
  }
}

void pairByReceptacles(const UsbTopology& usb, std::map<UsbAddress, std::string>& containers) {
  for (const auto& [address, port] : usb.ports) {
    const auto first = usb.devices.find(address);
    const auto second = port.peer ? usb.devices.find(*port.peer) : usb.devices.end();
    if (first == usb.devices.end() || second == usb.devices.end() ||
        !areHalves(first->second, second->second) || containers.contains(address) ||
        containers.contains(*port.peer)) {
      continue;
    }
    const std::string container = "receptacle " + address.name() + " " + port.peer->name();
    containers[address] = container;
    containers[*port.peer] = container;
  }
}

} // namespace

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

std::map<UsbAddress, std::string> containersOfHubHalves(const UsbTopology& usb) {
  std::map<UsbAddress, std::string> containers;
  pairByDescriptors(usb, containers);
  pairByReceptacles(usb, containers);
  return containers;
}

} // namespace tamberline::sysfs
