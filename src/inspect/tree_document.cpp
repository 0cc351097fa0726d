#include "base/overloaded.h"
#include "inspect/document_parts.h"

namespace tamberline {
namespace {

/// The name of the kind, and the kind's record.
Document describeKind(const TreeNode::Kind& kind) {
  return std::visit(
      Overloaded{
          [](const TreeNode::TBPort& port) -> Document {
            return {{"kind", "tbPort"}, {"bus", describeBusWithoutChildren(port.bus)}};
          },
          [](const TreeNode::TBDevice& entry) -> Document {
            return {{"kind", "tbDevice"}, {"device", describeDeviceWithoutChildren(entry.device)}};
          },
          [](const TreeNode::USBBusEntry& entry) -> Document {
            return {{"kind", "usbBus"}, {"bus", describeBusWithoutChildren(entry.bus)}};
          },
          [](const TreeNode::USBDeviceEntry& entry) -> Document {
            return {
                {"kind", "usbDevice"},
                {"device", describeDeviceWithoutChildren(entry.device)},
                {"busMaxGbps", entry.busMaxGbps},
                {"portMa", entry.portMa},
                {"speedFraction", entry.device.speedFraction(entry.busMaxGbps)},
                {"speedNote", orNull(entry.device.trueSpeedNote(entry.busMaxGbps))},
            };
          },
          [](const TreeNode::Charger& entry) -> Document {
            return {{"kind", "charger"}, {"charger", describe(entry.charger)}};
          },
          [](const TreeNode::ChargingOnly&) -> Document {
            return {{"kind", "chargingOnly"}};
          },
      },
      kind);
}

} // namespace

Document describe(const TreeNode& node) {
  const AggregatedPower power = node.aggregatedUSBPower();
  Document document = {{"id", node.id}};
  document.update(describeKind(node.kind));
  document["localKey"] = node.localKey();
  document["hasChildren"] = node.hasChildren();
  document["attachedItemCount"] = node.attachedItemCount();
  document["isConnected"] = node.isConnected();
  document["usedMa"] = power.usedMa;
  document["allocMa"] = power.allocMa;
  document["children"] =
      listOf(node.children, [](const TreeNode& child) { return describe(child); });
  return document;
}

Document describe(const SearchEntry& entry) {
  return {
      {"id", entry.id},
      {"name", entry.name},
      {"detail", entry.detail},
      {"breadcrumb", entry.breadcrumb},
  };
}

} // namespace tamberline
