#include "platform/linux_devices/physical_ports.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tamberline::sysfs {
namespace {

constexpr int greatestPortOfUsb = 254; // a location has a byte for it, and 255 is no port

/// Which port of the case is at which place; a place with several ports tells nothing.
class Places {
public:
  void add(const std::optional<PhysicalLocation>& place, int port) {
    if (place && port <= greatestPortOfUsb) {
      const auto [entry, isNew] = ports_.emplace(*place, port);
      if (!isNew) {
        entry->second = std::nullopt;
      }
    }
  }

  std::optional<int> portAt(const std::optional<PhysicalLocation>& place) const {
    const auto found = place ? ports_.find(*place) : ports_.end();
    return found == ports_.end() ? std::nullopt : found->second;
  }

private:
  std::map<PhysicalLocation, std::optional<int>> ports_;
};

class PortFinder {
public:
  explicit PortFinder(const Machine& machine) : machine_(machine) {
    for (const auto& [number, port] : machine.typecPorts) {
      found_.ports[number];
      places_.add(port.location, number);
    }
  }

  PhysicalPorts find() && {
    placeUsb4Ports();
    placeRouters();
    placeUsbPorts();
    return std::move(found_);
  }

private:
  int addPort(const RouterAddress& host) {
    const int number = found_.ports.empty() ? 0 : found_.ports.rbegin()->first + 1;
    found_.ports[number].host = host;
    return number;
  }

  /// Of two USB4 ports at the place of one USB-C port neither can be told to be it.
  bool isAloneAtItsPlace(const Usb4Port& port) const {
    const auto& ports = machine_.thunderbolt.hostPorts;
    return std::count_if(ports.begin(), ports.end(), [&](const Usb4Port& other) {
             return other.location == port.location;
           }) == 1;
  }

  std::optional<int> knownPortOf(const Usb4Port& port) const {
    if (port.connector && machine_.typecPorts.contains(*port.connector)) {
      return port.connector;
    }
    return isAloneAtItsPlace(port) ? places_.portAt(port.location) : std::nullopt;
  }

  void placeUsb4Ports() {
    std::vector<std::pair<const Usb4Port*, int>> added;
    for (const Usb4Port& port : machine_.thunderbolt.hostPorts) {
      const auto known = knownPortOf(port);
      const int number = known ? *known : addPort(port.host);
      found_.ports[number].host = port.host;
      numberOfHostPort_[{port.host, port.number}] = number;
      if (!known) {
        added.emplace_back(&port, number);
      }
    }
    for (const auto& [port, number] : added) {
      places_.add(port->location, number);
    }
  }

  /// A host that does not tell its ports apart is one port.
  int portOfHost(const RouterAddress& host) {
    const auto found = numberOfHost_.find(host);
    return found == numberOfHost_.end() ? numberOfHost_.emplace(host, addPort(host)).first->second
                                        : found->second;
  }

  void placeRouters() {
    for (const auto& [address, router] : machine_.thunderbolt.routers) {
      const RouterAddress host{address.domain, 0};
      const auto hostPort = numberOfHostPort_.find({host, address.hostPort()});
      if (address.isHost()) {
        const auto& ports = machine_.thunderbolt.hostPorts;
        if (std::none_of(ports.begin(), ports.end(),
                         [&](const Usb4Port& port) { return port.host == host; })) {
          portOfHost(host);
        }
      } else if (!machine_.thunderbolt.routers.contains(address.parent()) ||
                 address.parent().isHost()) {
        const int number =
            hostPort == numberOfHostPort_.end() ? portOfHost(host) : hostPort->second;
        found_.ports[number].routers.push_back(address);
      }
    }
  }

  void placeUsbPorts() {
    std::map<std::pair<int, int>, std::vector<UsbAddress>> byPlace; // by port of the case and bus
    for (const auto& [address, port] : machine_.usb.ports) {
      if (port.connector && machine_.typecPorts.contains(*port.connector)) {
        found_.portOfUsbPort[address] = *port.connector;
      } else if (const auto number = places_.portAt(port.location)) {
        byPlace[{*number, address.bus}].push_back(address);
      }
    }
    for (const auto& [place, addresses] : byPlace) {
      if (addresses.size() == 1) {
        found_.portOfUsbPort[addresses.front()] = place.first;
      }
    }
  }

  const Machine& machine_;
  PhysicalPorts found_;
  Places places_;
  std::map<std::pair<RouterAddress, int>, int> numberOfHostPort_;
  std::map<RouterAddress, int> numberOfHost_;
};

} // namespace

std::optional<int> PhysicalPorts::portOf(const UsbAddress& address) const {
  for (UsbAddress above = address; !above.isRootHub(); above = above.parent()) {
    const auto found = portOfUsbPort.find(above);
    if (found != portOfUsbPort.end()) {
      return found->second;
    }
  }
  return std::nullopt;
}

PhysicalPorts physicalPortsOf(const Machine& machine) {
  return PortFinder(machine).find();
}

} // namespace tamberline::sysfs
