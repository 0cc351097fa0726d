#include "platform/linux/sysfs/report/physical_ports.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tamberline::sysfs {
namespace {

constexpr int maxUsbPort = 254; // a location has one byte for it, and 255 means none

/// The port of the case at each location. A location with several ports identifies none of them.
class Places {
public:
  void add(const std::optional<PhysicalLocation>& place, int port) {
    if (place && port <= maxUsbPort) {
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

/// A part of a Thunderbolt or USB4 domain that firmware links to no USB-C port: a USB4 port, or a
/// first router behind a host that does not report its ports.
struct UnlinkedPort {
  RouterAddress host;
  std::optional<Usb4Port> port = {};
  std::optional<RouterAddress> router = {}; // absent if nothing is connected
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
    assignUsb4Ports();
    assignUnlinkedPorts();
    assignUsbPorts();
    return std::move(found_);
  }

private:
  int addPort(const UnlinkedPort& untied) {
    const int number = found_.ports.empty() ? 0 : found_.ports.rbegin()->first + 1;
    if (untied.port) {
      addedPlaces_.emplace_back(untied.port->location, number);
    }
    take(untied, number);
    return number;
  }

  void take(const UnlinkedPort& untied, int number) {
    found_.ports[number].host = untied.host;
    if (untied.router) {
      found_.ports[number].routers.push_back(*untied.router);
    }
  }

  /// If several USB4 ports are at the location of a USB-C port, none of them can be matched with
  /// it.
  bool isOnlyOneAtLocation(const Usb4Port& port) const {
    const auto& ports = machine_.thunderbolt.hostPorts;
    return std::count_if(ports.begin(), ports.end(), [&](const Usb4Port& other) {
             return other.location == port.location;
           }) == 1;
  }

  std::optional<int> knownPortOf(const Usb4Port& port) const {
    if (port.connector && machine_.typecPorts.contains(*port.connector)) {
      return port.connector;
    }
    return isOnlyOneAtLocation(port) ? places_.portAt(port.location) : std::nullopt;
  }

  /// The first routers of a domain, including a router whose parent was removed while the machine
  /// was read.
  std::vector<RouterAddress> firstRouters(const RouterAddress& host) const {
    std::vector<RouterAddress> first;
    for (const auto& [address, router] : machine_.thunderbolt.routers) {
      if (!address.isHost() && address.domain == host.domain &&
          (address.parent().isHost() || !machine_.thunderbolt.routers.contains(address.parent()))) {
        first.push_back(address);
      }
    }
    return first;
  }

  void assignUsb4Ports() {
    std::set<RouterAddress> placed;
    for (const Usb4Port& port : machine_.thunderbolt.hostPorts) {
      UnlinkedPort untied{.host = port.host, .port = port};
      const auto known = knownPortOf(port);
      for (const RouterAddress& router : firstRouters(port.host)) {
        if (router.hostPort() == port.number && placed.insert(router).second) {
          untied.router = router;
          if (known) {
            take(untied, *known);
          } else {
            unlinked_.push_back(untied);
          }
        }
      }
      if (untied.router) {
        continue;
      }
      if (known) {
        take(untied, *known);
      } else {
        unlinked_.push_back(untied);
      }
    }
    collectOtherRouters(placed);
  }

  /// Collects the first routers that no USB4 port was found for, and hosts that report neither
  /// routers nor ports.
  void collectOtherRouters(const std::set<RouterAddress>& placed) {
    for (const auto& entry : machine_.thunderbolt.routers) {
      const RouterAddress host = entry.first;
      if (!host.isHost()) {
        continue;
      }
      bool hasRouters = false;
      for (const RouterAddress& router : firstRouters(host)) {
        hasRouters = true;
        if (!placed.contains(router)) {
          unlinked_.push_back({.host = host, .router = router});
        }
      }
      const auto& ports = machine_.thunderbolt.hostPorts;
      const bool reportsPorts = std::any_of(
          ports.begin(), ports.end(), [&](const Usb4Port& port) { return port.host == host; });
      if (!hasRouters && !reportsPorts) {
        unlinked_.push_back({.host = host});
      }
    }
  }

  /// Every port with Thunderbolt or USB4 is a USB-C port, even if firmware does not link the two.
  /// If the kernel lists USB-C ports, there are no others.
  void assignUnlinkedPorts() {
    std::vector<UnlinkedPort> connected;
    std::vector<UnlinkedPort> others;
    for (const UnlinkedPort& untied : unlinked_) {
      (untied.router || machine_.typecPorts.empty() ? connected : others).push_back(untied);
    }
    const std::vector<int> ports = portsOfRouters(connected.size());
    for (std::size_t index = 0; index < connected.size(); ++index) {
      if (ports.empty()) {
        addPort(connected[index]);
      } else {
        take(connected[index], ports[index]);
      }
    }
    for (std::size_t index = freePorts().size(); index < others.size(); ++index) {
      addPort(others[index]);
    }
    for (const auto& [place, number] : addedPlaces_) {
      places_.add(place, number);
    }
  }

  /// The USB-C ports of this many routers, in order; empty if they are ambiguous.
  std::vector<int> portsOfRouters(std::size_t count) const {
    std::vector<int> candidates = freePorts();
    const auto keep = [&](const auto& isCandidate) {
      std::erase_if(candidates, [&](int number) {
        return !isCandidate(number, machine_.typecPorts.at(number).partner);
      });
      return candidates.size() == count;
    };
    using Partner = std::optional<TypecPartner>;
    if (keep([](int, const Partner& partner) { return partner.has_value(); }) ||
        keep([&](int number, const Partner& partner) {
          return partner->accessory == PartnerAccessory::none && !hasPlainDevice(number);
        }) ||
        keep([](int, const Partner& partner) { return partner->knowsThunderbolt; })) {
      return candidates;
    }
    return {};
  }

  /// Whether a device other than a hub is plugged into a USB-C port. Behind a router, the first
  /// device is a hub.
  bool hasPlainDevice(int connector) const {
    return std::any_of(machine_.usb.ports.begin(), machine_.usb.ports.end(),
                       [&](const auto& entry) {
                         const auto device = machine_.usb.devices.find(entry.first);
                         return entry.second.connector == connector &&
                                device != machine_.usb.devices.end() && !device->second.isHub;
                       });
  }

  /// The USB-C ports without a known host.
  std::vector<int> freePorts() const {
    std::vector<int> numbers;
    for (const auto& [number, port] : machine_.typecPorts) {
      if (!found_.ports.at(number).host) {
        numbers.push_back(number);
      }
    }
    return numbers;
  }

  void assignUsbPorts() {
    std::map<std::pair<int, int>, std::vector<UsbAddress>> byPlace; // by port of the case and bus
    for (const auto& [address, port] : machine_.usb.ports) {
      if (port.isHardwired) {
        continue;
      }
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
  std::vector<UnlinkedPort> unlinked_;
  std::vector<std::pair<std::optional<PhysicalLocation>, int>> addedPlaces_;
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
