#include "support/sample_records.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tamberline {
namespace {

using Identifiers = std::vector<std::string>;

void append(const std::vector<TreeNode>& nodes, Identifiers& identifiers) {
  for (const TreeNode& node : nodes) {
    identifiers.push_back(node.id);
    append(node.children, identifiers);
  }
}

Identifiers identifiersOf(const std::vector<TreeNode>& nodes) {
  Identifiers identifiers;
  append(nodes, identifiers);
  return identifiers;
}

TreeNode bus(const std::string& rawName, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBBusEntry{addOnBus(rawName, {})}, std::move(children));
}

TreeNode port(std::int64_t number, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::TBPort{thunderboltBus(number)}, std::move(children));
}

std::vector<TreeNode> scannedTree() {
  return assignStableIDs(
      buildPortTree(
          {.thunderboltBuses = {thunderboltBus(0, {thunderboltDevice("Harbour Dock")})},
           .usbBuses = {internalBus({usbDeviceOnPort(0, "Disk")}),
                        addOnBus("USB31Bus", {usbDevice("hub_device", {usbDevice("Keys")}),
                                              usbDevice("hub_device", {usbDevice("Keys")})})}}),
      "");
}

TEST(StableIdentifiers, ArePathsOfTheLocalKeys) {
  EXPECT_EQ(identifiersOf(scannedTree()),
            (Identifiers{
                "/port1",
                "/port1/tb:uid-Harbour Dock",
                "/port1/tb:uid-Harbour Dock/bus:USB31Bus",
                "/port1/tb:uid-Harbour Dock/bus:USB31Bus/usb:hub_device",
                "/port1/tb:uid-Harbour Dock/bus:USB31Bus/usb:hub_device/usb:Keys",
                "/port1/tb:uid-Harbour Dock/bus:USB31Bus/usb:hub_device#1",
                "/port1/tb:uid-Harbour Dock/bus:USB31Bus/usb:hub_device#1/usb:Keys",
                "/port1/usb:Disk",
            }));
}

TEST(StableIdentifiers, AreTheSameInTheNextScan) {
  EXPECT_EQ(identifiersOf(scannedTree()), identifiersOf(scannedTree()));
}

TEST(StableIdentifiers, CountEqualSiblingsPerKeyAndLevel) {
  const std::vector<TreeNode> nodes = assignStableIDs(
      {bus("A", {bus("A"), bus("A")}), bus("B"), bus("A", {bus("A")}), bus("A"), bus("B")}, "");

  EXPECT_EQ(identifiersOf(nodes),
            (Identifiers{"/bus:A", "/bus:A/bus:A", "/bus:A/bus:A#1", "/bus:B", "/bus:A#1",
                         "/bus:A#1/bus:A", "/bus:A#2", "/bus:B#1"}));
}

TEST(StableIdentifiers, ContinueTheParentsPath) {
  EXPECT_EQ(identifiersOf(assignStableIDs({bus("A")}, "/port1")), (Identifiers{"/port1/bus:A"}));
}

TEST(StableIdentifiers, LeaveTheRestOfTheTreeUnchanged) {
  const std::vector<TreeNode> nodes = assignStableIDs({port(4, {bus("A"), bus("B")})}, "");

  ASSERT_EQ(nodes.size(), 1U);
  EXPECT_EQ(std::get<TreeNode::TBPort>(nodes[0].kind).bus.busNumber, 4);
  ASSERT_EQ(nodes[0].children.size(), 2U);
  EXPECT_EQ(nodes[0].children[1].localKey(), "bus:B");
}

TEST(StableIdentifiers, ChangeWithThePortOfADevice) {
  const auto identifierOnPort = [](std::int64_t physicalPort) {
    const std::vector<TreeNode> tree = assignStableIDs(
        buildPortTree({.thunderboltBuses = {thunderboltBus(physicalPort)},
                       .usbBuses = {internalBus({usbDeviceOnPort(physicalPort, "Disk")})}}),
        "");
    return tree.at(0).children.at(0).id;
  };

  EXPECT_EQ(identifierOnPort(0), "/port1/usb:Disk");
  EXPECT_EQ(identifierOnPort(1), "/port2/usb:Disk");
}

TEST(AllContainerIDs, ListPortsAndNodesWithChildrenFromTheTopDown) {
  const std::vector<TreeNode> nodes =
      assignStableIDs({TreeNode(TreeNode::Charger{}),
                       port(1, {bus("A", {bus("leaf"), bus("B", {bus("leaf")})}), bus("leaf")}),
                       port(2), bus("C"), bus("D", {bus("leaf")})},
                      "");

  EXPECT_EQ(allContainerIDs(nodes),
            (Identifiers{"/port1", "/port1/bus:A", "/port1/bus:A/bus:B", "/port2", "/bus:D"}));
}

TEST(AllContainerIDs, AreNoneInAnEmptyTree) {
  EXPECT_EQ(allContainerIDs({}), Identifiers{});
}

TEST(AncestorIDs, AreThePathsThatLeadToANode) {
  const struct {
    const char* id;
    Identifiers ancestors;
  } rows[] = {
      {"/port1/tb:X/bus:Y", {"/port1", "/port1/tb:X", "/port1/tb:X/bus:Y"}},
      {"/port1", {"/port1"}},
      {"/port1/usb:hub_device#1", {"/port1", "/port1/usb:hub_device#1"}},
      {"", {}},
      {"/", {}},
      {"//port1//tb:X/", {"/port1", "/port1/tb:X"}},
      {"port1", {"/port1"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.id);
    EXPECT_EQ(ancestorIDs(row.id), row.ancestors);
  }
}

TEST(AncestorIDs, OfAKeyWithASlashIncludeOneExtraNode) {
  ThunderboltDevice device{.name = "Dock", .vendorName = "Harbour"};
  const std::vector<TreeNode> nodes =
      assignStableIDs({port(1, {TreeNode(TreeNode::TBDevice{device}, {bus("A")})})}, "");
  const std::string deepest = nodes.at(0).children.at(0).children.at(0).id;

  EXPECT_EQ(ancestorIDs(deepest),
            (Identifiers{"/port1", "/port1/tb:Harbour", "/port1/tb:Harbour/Dock",
                         "/port1/tb:Harbour/Dock/bus:A"}));
}

} // namespace
} // namespace tamberline
