#include "support/tree_text.h"

#include "base/overloaded.h"
#include "base/text.h"

namespace tamberline {
namespace {

std::string label(const TreeNode& node) {
  return std::visit(
      Overloaded{
          [](const TreeNode::TBPort& port) { return "port " + std::to_string(port.bus.busNumber); },
          [](const TreeNode::TBDevice& entry) { return "tb " + entry.device.name; },
          [](const TreeNode::USBBusEntry& entry) { return "bus " + entry.bus.displayName(); },
          [](const TreeNode::USBDeviceEntry& entry) {
            return "usb " + entry.device.name + " (" + generalText(entry.busMaxGbps) + " Gb/s, " +
                   std::to_string(entry.portMa) + " mA)";
          },
          [](const TreeNode::Charger& entry) {
            return "charger " + entry.charger.name + " on " +
                   entry.charger.portLabel.value_or("no port") +
                   (entry.charger.connectsViaUSBC ? " via USB-C" : "");
          },
          [](const TreeNode::ChargingOnly&) { return std::string("charging only"); },
      },
      node.kind);
}

void append(const std::vector<TreeNode>& nodes, const std::string& indent, std::string& text) {
  for (const TreeNode& node : nodes) {
    text += indent + label(node) + "\n";
    append(node.children, indent + "  ", text);
  }
}

} // namespace

std::string treeText(const std::vector<TreeNode>& nodes) {
  std::string text;
  append(nodes, "", text);
  return text;
}

} // namespace tamberline
