#include "tree/port_tree.h"

#include "base/letter_case.h"
#include "base/saturating.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

struct PortNode {
  std::int64_t portNumber;
  TreeNode node;
};

using DevicesByPort = std::map<std::int64_t, std::vector<TreeNode>>;

void append(std::vector<TreeNode>& nodes, std::vector<TreeNode> more) {
  std::move(more.begin(), more.end(), std::back_inserter(nodes));
}

std::int64_t portNumberOf(std::int64_t zeroBasedIndex) {
  return saturatingSum(zeroBasedIndex, 1);
}

TreeNode usbBusNode(const USBBus& bus) {
  return TreeNode(TreeNode::USBBusEntry{bus},
                  usbDeviceNodes(bus.devices, bus.maxSpeedGbps(), bus.portMaxMa()));
}

std::vector<USBBus> busesWhere(const std::vector<USBBus>& buses, bool isInternal) {
  std::vector<USBBus> selected;
  std::copy_if(buses.begin(), buses.end(), std::back_inserter(selected),
               [&](const USBBus& bus) { return bus.isInternalTBController() == isInternal; });
  return selected;
}

DevicesByPort ownControllerDevices(const PortTreeInputs& inputs) {
  DevicesByPort devicesByPort;
  for (const USBBus& bus : busesWhere(inputs.usbBuses, /*isInternal=*/true)) {
    for (const USBDevice& device : bus.devices) {
      const std::int64_t port = device.physicalPort.value_or(-1);
      const auto limit = inputs.portCurrentLimitMa.find(portNumberOf(port));
      const std::int64_t budgetMa =
          limit == inputs.portCurrentLimitMa.end() ? bus.portMaxMa() : limit->second;
      append(devicesByPort[port], usbDeviceNodes({device}, bus.maxSpeedGbps(), budgetMa));
    }
  }
  return devicesByPort;
}

ThunderboltBus withPortNumber(const ThunderboltBus& bus, std::int64_t portNumber) {
  ThunderboltBus copy = bus;
  copy.id = Uuid::random();
  copy.busNumber = portNumber;
  return copy;
}

std::vector<PortNode> buildPortNodes(const std::vector<ThunderboltBus>& buses,
                                     const DevicesByPort& devicesByPort,
                                     const std::vector<USBBus>& externalUSBBuses,
                                     std::set<Uuid>& usedBusIDs) {
  std::vector<PortNode> portNodes;
  for (const ThunderboltBus& bus : buses) {
    const std::int64_t portNumber = portNumberOf(bus.busNumber);
    std::vector<TreeNode> children =
        buildTBDeviceNodes(bus.connectedDevices, externalUSBBuses, usedBusIDs);
    const auto devices = devicesByPort.find(bus.busNumber);
    if (devices != devicesByPort.end()) {
      append(children, devices->second);
    }
    portNodes.push_back({portNumber, TreeNode(TreeNode::TBPort{withPortNumber(bus, portNumber)},
                                              std::move(children))});
  }
  return portNodes;
}

struct PlacedCharger {
  TreeNode node;
  HPMPort port;
};

/// Absent if no adapter is connected or no port controller detects one.
std::optional<PlacedCharger> placedCharger(const PortTreeInputs& inputs) {
  const auto port = std::find_if(inputs.hpmPorts.begin(), inputs.hpmPorts.end(),
                                 [](const HPMPort& candidate) { return candidate.isCharger(); });
  if (!inputs.charger || !inputs.charger->isConnected || port == inputs.hpmPorts.end()) {
    return std::nullopt;
  }
  ChargerInfo charger = *inputs.charger;
  charger.connectsViaUSBC = !port->isMagSafe;
  charger.portLabel = port->label();
  return PlacedCharger{TreeNode(TreeNode::Charger{std::move(charger)}), *port};
}

void insertUnderItsPort(PlacedCharger charger, std::vector<PortNode>& portNodes) {
  const auto found =
      std::find_if(portNodes.begin(), portNodes.end(), [&](const PortNode& candidate) {
        return candidate.portNumber == charger.port.portNumber;
      });
  if (found != portNodes.end()) {
    found->node.children.insert(found->node.children.begin(), std::move(charger.node));
  }
}

void markChargingOnlyPorts(const std::vector<HPMPort>& hpmPorts, std::vector<PortNode>& portNodes) {
  for (PortNode& portNode : portNodes) {
    const bool powersADevice =
        std::any_of(hpmPorts.begin(), hpmPorts.end(), [&](const HPMPort& port) {
          return port.portNumber == portNode.portNumber && port.isChargeOnlyDevice();
        });
    if (powersADevice && !portNode.node.hasChildren()) {
      portNode.node.children.emplace_back(TreeNode::ChargingOnly{});
    }
  }
}

/// A drive's speed is limited by its enclosure's link.
std::vector<TreeNode> driveNodes(const ThunderboltDevice& device) {
  constexpr double thunderboltMaxGbps = 40;
  std::vector<TreeNode> nodes;
  for (const USBDevice& drive : device.drives) {
    nodes.emplace_back(TreeNode::USBDeviceEntry{
        .device = drive, .busMaxGbps = std::max(thunderboltMaxGbps, drive.speedGbps())});
  }
  return nodes;
}

bool isDock(const ThunderboltDevice& device) {
  constexpr std::array<std::string_view, 4> words = {"dock", "hub", "station", "breakout"};
  const std::string name = lowerCased(device.name);
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return contains(name, word); });
}

} // namespace

std::vector<TreeNode> buildPortTree(const PortTreeInputs& inputs) {
  const std::vector<USBBus> externalUSBBuses = busesWhere(inputs.usbBuses, /*isInternal=*/false);
  std::set<Uuid> usedBusIDs;
  std::vector<PortNode> portNodes = buildPortNodes(
      inputs.thunderboltBuses, ownControllerDevices(inputs), externalUSBBuses, usedBusIDs);

  std::vector<TreeNode> tree;
  if (inputs.charger && inputs.charger->isConnected && inputs.charger->isOnNoKnownPort) {
    tree.emplace_back(TreeNode::Charger{*inputs.charger});
  } else if (std::optional<PlacedCharger> charger = placedCharger(inputs)) {
    if (charger->port.isMagSafe) {
      tree.push_back(std::move(charger->node));
    } else {
      insertUnderItsPort(std::move(*charger), portNodes);
    }
  }
  markChargingOnlyPorts(inputs.hpmPorts, portNodes);
  std::stable_sort(portNodes.begin(), portNodes.end(),
                   [](const PortNode& left, const PortNode& right) {
                     return left.portNumber < right.portNumber;
                   });
  for (PortNode& portNode : portNodes) {
    tree.push_back(std::move(portNode.node));
  }
  for (const USBBus& bus : externalUSBBuses) {
    if (!usedBusIDs.contains(bus.id)) {
      tree.push_back(usbBusNode(bus));
    }
  }
  return tree;
}

std::vector<TreeNode> usbDeviceNodes(const SharedList<USBDevice>& devices, double maxGbps,
                                     std::int64_t maxMa) {
  std::vector<TreeNode> nodes;
  nodes.reserve(devices.size());
  for (const USBDevice& device : devices) {
    nodes.emplace_back(TreeNode::USBDeviceEntry{device, maxGbps, maxMa},
                       usbDeviceNodes(device.children, maxGbps, maxMa));
  }
  return nodes;
}

std::vector<TreeNode> buildTBDeviceNodes(const SharedList<ThunderboltDevice>& devices,
                                         const std::vector<USBBus>& externalUSBBuses,
                                         std::set<Uuid>& usedBusIDs) {
  std::vector<TreeNode> nodes;
  for (const ThunderboltDevice& device : devices) {
    // Devices further down the chain come first, so that the last dock of a chain gets the buses.
    std::vector<TreeNode> children =
        buildTBDeviceNodes(device.children, externalUSBBuses, usedBusIDs);
    if (isDock(device)) {
      for (const USBBus& bus : externalUSBBuses) {
        if (!bus.isBuiltIn && usedBusIDs.insert(bus.id).second) {
          children.push_back(usbBusNode(bus));
        }
      }
    }
    append(children, driveNodes(device));
    nodes.emplace_back(TreeNode::TBDevice{device}, std::move(children));
  }
  return nodes;
}

} // namespace tamberline
