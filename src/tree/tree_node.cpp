#include "tree/tree_node.h"

#include "base/overloaded.h"
#include "base/saturating.h"

#include <utility>

namespace tamberline {
namespace {

std::string keyOf(const ThunderboltDevice& device) {
  return "tb:" + (device.uid.empty() ? device.vendorName + "/" + device.name : device.uid);
}

std::string keyOf(const USBDevice& device) {
  const std::string identity =
      device.vendorID + ":" + device.productID + ":" + device.serialNumber.value_or("");
  return "usb:" + (identity == "::" ? device.name : identity);
}

bool isItem(const TreeNode& node) {
  return !std::holds_alternative<TreeNode::TBPort>(node.kind) &&
         !std::holds_alternative<TreeNode::USBBusEntry>(node.kind);
}

} // namespace

TreeNode::TreeNode(Kind nodeKind, std::vector<TreeNode> nodeChildren)
    : id(Uuid::random().text()), kind(std::move(nodeKind)), children(std::move(nodeChildren)) {}

std::string TreeNode::localKey() const {
  return std::visit(
      Overloaded{
          [](const TBPort& port) { return "port" + std::to_string(port.bus.busNumber); },
          [](const TBDevice& entry) { return keyOf(entry.device); },
          [](const USBBusEntry& entry) { return "bus:" + entry.bus.rawName; },
          [](const USBDeviceEntry& entry) { return keyOf(entry.device); },
          [](const Charger&) { return std::string("charger"); },
          [](const ChargingOnly&) { return std::string("chargeonly"); },
      },
      kind);
}

std::int64_t TreeNode::attachedItemCount() const {
  std::int64_t count = 0;
  for (const TreeNode& child : children) {
    count += (isItem(child) ? 1 : 0) + child.attachedItemCount();
  }
  return count;
}

bool TreeNode::isConnected() const {
  const auto* port = std::get_if<TBPort>(&kind);
  return port == nullptr || port->bus.port.isConnected();
}

AggregatedPower TreeNode::aggregatedUSBPower() const {
  AggregatedPower sum;
  if (const auto* entry = std::get_if<USBDeviceEntry>(&kind)) {
    sum = {entry->device.busPowerUsed.value_or(0), entry->device.busPower.value_or(0)};
  }
  for (const TreeNode& child : children) {
    const AggregatedPower below = child.aggregatedUSBPower();
    sum.usedMa = saturatingSum(sum.usedMa, below.usedMa);
    sum.allocMa = saturatingSum(sum.allocMa, below.allocMa);
  }
  return sum;
}

} // namespace tamberline
