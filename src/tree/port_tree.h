#pragma once

#include "model/power_records.h"
#include "model/thunderbolt_records.h"
#include "model/usb_records.h"
#include "tree/tree_node.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace tamberline {

/// The results of one scan that the port tree needs.
struct PortTreeInputs {
  std::vector<ThunderboltBus> thunderboltBuses = {};
  std::vector<USBBus> usbBuses = {};
  std::optional<ChargerInfo> charger = {};
  std::vector<HPMPort> hpmPorts = {};
  /// mA by 1-based port number.
  std::map<std::int64_t, std::int64_t> portCurrentLimitMa = {};
};

/// The tree of physical ports: a MagSafe adapter first, then the ports in ascending order, then the
/// add-on buses that no dock claimed. Identifiers are still random. A device on the computer's own
/// controllers is left out if its port has no Thunderbolt bus, and so is an adapter without a port.
std::vector<TreeNode> buildPortTree(const PortTreeInputs& inputs);

/// One node per device; hubs pass both limits on unchanged.
std::vector<TreeNode> usbDeviceNodes(const SharedList<USBDevice>& devices, double maxGbps,
                                     std::int64_t maxMa);

/// One node per device. A device with the name of a dock takes every add-on bus that no device
/// behind it took, and records it in `usedBusIDs`.
std::vector<TreeNode> buildTBDeviceNodes(const SharedList<ThunderboltDevice>& devices,
                                         const std::vector<USBBus>& externalUSBBuses,
                                         std::set<Uuid>& usedBusIDs);

} // namespace tamberline
