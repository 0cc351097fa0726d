#include "support/sample_records.h"
#include "tree/tree_node.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace tamberline {
namespace {

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

TreeNode usbNode(const USBDevice& device, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBDeviceEntry{device, 10.0, 900}, std::move(children));
}

TreeNode usbNode(std::optional<std::int64_t> usedMa, std::optional<std::int64_t> allocatedMa,
                 std::vector<TreeNode> children = {}) {
  return usbNode(USBDevice{.busPower = allocatedMa, .busPowerUsed = usedMa}, std::move(children));
}

TreeNode portNode(std::vector<TreeNode> children, const std::string& status = {}) {
  ThunderboltBus bus = thunderboltBus(1);
  bus.port.status = status;
  return TreeNode(TreeNode::TBPort{std::move(bus)}, std::move(children));
}

TEST(TreeNode, HasARandomIdentifierAndNoChildrenAtFirst) {
  const TreeNode first(TreeNode::ChargingOnly{});
  const TreeNode second(TreeNode::ChargingOnly{});

  EXPECT_EQ(first.id.size(), 36U);
  EXPECT_NE(first.id, second.id);
  EXPECT_TRUE(first.children.empty());
}

TEST(TreeNode, SaysWhetherItHasChildren) {
  EXPECT_FALSE(portNode({}).hasChildren());
  EXPECT_TRUE(portNode({TreeNode(TreeNode::ChargingOnly{})}).hasChildren());
}

TEST(TreeNode, CopiesItsSubtree) {
  const TreeNode original = portNode({usbNode(100, 500)});
  TreeNode copy = original;
  copy.children.front().id = "changed";

  EXPECT_NE(original.children.front().id, "changed");
}

TEST(LocalKey, DistinguishesANodeFromItsSiblings) {
  const struct {
    const char* description;
    TreeNode::Kind kind;
    const char* key;
  } rows[] = {
      {"a port", TreeNode::TBPort{thunderboltBus(3)}, "port3"},
      {"a port of an absurd number", TreeNode::TBPort{thunderboltBus(-1)}, "port-1"},
      {"a Thunderbolt device", TreeNode::TBDevice{{.name = "Dock", .uid = "0x1"}}, "tb:0x1"},
      {"a Thunderbolt device without uid",
       TreeNode::TBDevice{{.name = "Dock", .vendorName = "Harbour"}}, "tb:Harbour/Dock"},
      {"a nameless Thunderbolt device", TreeNode::TBDevice{}, "tb:/"},
      {"a bus", TreeNode::USBBusEntry{addOnBus("USB31Bus", {})}, "bus:USB31Bus"},
      {"an adapter", TreeNode::Charger{{.name = "96W Adapter"}}, "charger"},
      {"a charging-only marker", TreeNode::ChargingOnly{}, "chargeonly"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(TreeNode(row.kind).localKey(), row.key);
  }
}

TEST(LocalKey, OfAUSBDeviceIsItsIdentityOrElseItsName) {
  const struct {
    const char* description;
    USBDevice device;
    const char* key;
  } rows[] = {
      {"all three",
       {.name = "Disk", .vendorID = "0x05ac", .productID = "0x12", .serialNumber = "S1"},
       "usb:0x05ac:0x12:S1"},
      {"no serial number",
       {.name = "Disk", .vendorID = "0x05ac", .productID = "0x12"},
       "usb:0x05ac:0x12:"},
      {"an empty serial number",
       {.name = "Disk", .vendorID = "0x05ac", .productID = "0x12", .serialNumber = ""},
       "usb:0x05ac:0x12:"},
      {"only a product", {.name = "Disk", .productID = "0x12"}, "usb::0x12:"},
      {"only a serial number", {.name = "Disk", .serialNumber = "S1"}, "usb:::S1"},
      {"nothing", {.name = "Disk"}, "usb:Disk"},
      {"nothing but an empty serial number", {.name = "Disk", .serialNumber = ""}, "usb:Disk"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(usbNode(row.device).localKey(), row.key);
  }
}

TEST(AttachedItemCount, CountsDevicesAndNoBuses) {
  const TreeNode addOn(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})},
                       {usbNode(usbDevice("Disk")), usbNode(usbDevice("Keys"))});
  const TreeNode dock(TreeNode::TBDevice{thunderboltDevice("Dock")}, {addOn});

  EXPECT_EQ(portNode({dock}).attachedItemCount(), 3);
  EXPECT_EQ(dock.attachedItemCount(), 2) << "a node does not count itself";
}

TEST(AttachedItemCount, CountsAdaptersMarkersAndWhatIsBehindHubs) {
  const TreeNode hub = usbNode(usbDevice("Hub"), {usbNode(usbDevice("Disk"))});

  EXPECT_EQ(portNode({}).attachedItemCount(), 0);
  EXPECT_EQ(portNode({TreeNode(TreeNode::Charger{})}).attachedItemCount(), 1);
  EXPECT_EQ(portNode({TreeNode(TreeNode::ChargingOnly{})}).attachedItemCount(), 1);
  EXPECT_EQ(portNode({hub, hub}).attachedItemCount(), 4);
}

TEST(AttachedItemCount, CountsNoPorts) {
  EXPECT_EQ(portNode({portNode({usbNode(usbDevice("Disk"))})}).attachedItemCount(), 1);
}

TEST(IsConnected, IsThePortsOwnStateAndTrueOfEverythingElse) {
  EXPECT_TRUE(portNode({}, "receptacle_connected").isConnected());
  EXPECT_FALSE(portNode({}, "receptacle_no_devices_connected").isConnected());
  EXPECT_FALSE(portNode({usbNode(usbDevice("Disk"))}).isConnected());

  EXPECT_TRUE(TreeNode(TreeNode::TBDevice{}).isConnected());
  EXPECT_TRUE(TreeNode(TreeNode::USBBusEntry{}).isConnected());
  EXPECT_TRUE(TreeNode(TreeNode::USBDeviceEntry{}).isConnected());
  EXPECT_TRUE(TreeNode(TreeNode::Charger{}).isConnected());
  EXPECT_TRUE(TreeNode(TreeNode::ChargingOnly{}).isConnected());
}

TEST(AggregatedUSBPower, AddsTheWholeSubtreeToTheNodesOwnDraw) {
  const TreeNode hub = usbNode(20, 900, {usbNode(100, 500), usbNode(200, 501)});

  EXPECT_EQ(hub.aggregatedUSBPower().usedMa, 320);
  EXPECT_EQ(hub.aggregatedUSBPower().allocMa, 1901);
}

TEST(AggregatedUSBPower, ReachesThroughNodesThatDrawNothingThemselves) {
  const TreeNode addOn(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})}, {usbNode(100, 500)});
  const TreeNode dock(TreeNode::TBDevice{thunderboltDevice("Dock")}, {addOn});
  const TreeNode port = portNode({TreeNode(TreeNode::Charger{}), dock, usbNode(7, 8)});

  EXPECT_EQ(port.aggregatedUSBPower().usedMa, 107);
  EXPECT_EQ(port.aggregatedUSBPower().allocMa, 508);
}

TEST(AggregatedUSBPower, TakesAnAbsentCurrentAsZero) {
  const TreeNode hub = usbNode(std::nullopt, 500, {usbNode(100, std::nullopt)});

  EXPECT_EQ(hub.aggregatedUSBPower().usedMa, 100);
  EXPECT_EQ(hub.aggregatedUSBPower().allocMa, 500);
}

TEST(AggregatedUSBPower, StopsAtTheLimitWhenDevicesReportAbsurdCurrents) {
  const TreeNode hub = usbNode(highest, highest, {usbNode(1, highest)});

  EXPECT_EQ(hub.aggregatedUSBPower().usedMa, highest);
  EXPECT_EQ(hub.aggregatedUSBPower().allocMa, highest);
}

} // namespace
} // namespace tamberline
