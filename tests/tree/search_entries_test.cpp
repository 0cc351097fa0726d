#include "support/language_scope.h"
#include "support/sample_records.h"
#include "tree/node_identifiers.h"
#include "tree/search_entries.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tamberline {
namespace {

TreeNode usbNode(const std::string& name, const std::string& manufacturer,
                 std::vector<TreeNode> children = {}) {
  return TreeNode(
      TreeNode::USBDeviceEntry{USBDevice{.name = name, .manufacturer = manufacturer}, 10, 900},
      std::move(children));
}

TreeNode portNode(std::vector<TreeNode> children) {
  return TreeNode(TreeNode::TBPort{thunderboltBus(1)}, std::move(children));
}

/// One entry per line: identifier, name, detail, breadcrumb.
std::string entriesText(const std::vector<SearchEntry>& entries) {
  std::string text;
  for (const SearchEntry& entry : entries) {
    text += entry.id + " | " + entry.name + " | " + entry.detail + " | " + entry.breadcrumb + "\n";
  }
  return text;
}

std::vector<TreeNode> deskTree() {
  const TreeNode bus(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})},
                     {usbNode("hub_device", "", {usbNode("Quarry SSD", "Quarry")})});
  const TreeNode dock(TreeNode::TBDevice{thunderboltDevice("Dock")}, {bus});
  return assignStableIDs({TreeNode(TreeNode::Charger{{.name = "Adapter", .manufacturer = "Volta"}}),
                          portNode({dock, usbNode("Keys", "Lettera")})},
                         "");
}

TEST(SearchEntries, ListDevicesAndAdaptersInTreeOrderWithTheirContainers) {
  EXPECT_EQ(entriesText(flattenSearchable(deskTree())),
            R"(/charger | Adapter | Volta | 
/port1/tb:uid-Dock | Dock | Harbour | Thunderbolt Port 1
/port1/tb:uid-Dock/bus:USB31Bus/usb:hub_device | USB Hub |  | Thunderbolt Port 1 › Dock › USB 3.1 Bus
/port1/tb:uid-Dock/bus:USB31Bus/usb:hub_device/usb:Quarry SSD | Quarry SSD | Quarry | Thunderbolt Port 1 › Dock › USB 3.1 Bus › USB Hub
/port1/usb:Keys | Keys | Lettera | Thunderbolt Port 1
)");
}

TEST(SearchEntries, LeaveOutPortsBusesAndChargingOnlyMarkers) {
  const std::vector<TreeNode> tree = {portNode({TreeNode(TreeNode::ChargingOnly{})}),
                                      TreeNode(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})})};

  EXPECT_EQ(entriesText(flattenSearchable(tree)), "");
}

TEST(SearchEntries, ContinueAGivenTrail) {
  const std::vector<SearchEntry> entries =
      flattenSearchable({usbNode("Keys", "Lettera")}, {"Desk", "Port"});

  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].breadcrumb, "Desk › Port");
}

TEST(SearchEntries, HaveNoBreadcrumbAtTheTop) {
  const std::vector<SearchEntry> entries = flattenSearchable({usbNode("Keys", "Lettera")});

  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].breadcrumb, "");
}

TEST(SearchEntries, NamePortsInTheLanguageOfTheRun) {
  const LanguageScope french(AppLanguage::fr);
  const std::vector<SearchEntry> entries =
      flattenSearchable({portNode({usbNode("Keys", "Lettera")})});

  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].breadcrumb, "Port Thunderbolt 1");
}

TEST(ShownSearchEntries, TrimThePaddingOfNames) {
  const std::vector<TreeNode> tree = assignStableIDs(
      {portNode({usbNode(" USB3.1 Hub    ", "Harbour  ", {usbNode("Keys\t", " ")})})}, "");

  EXPECT_EQ(entriesText(shownSearchEntries(tree)),
            R"(/port1/usb: USB3.1 Hub     | USB3.1 Hub | Harbour | Thunderbolt Port 1
/port1/usb: USB3.1 Hub    /usb:Keys	 | Keys |  | Thunderbolt Port 1 › USB3.1 Hub
)");
  EXPECT_EQ(flattenSearchable(tree).at(0).name, " USB3.1 Hub    ");
}

TEST(ShownSearchEntries, AreThoseOfTheTreeWhereNothingIsPadded) {
  EXPECT_EQ(entriesText(shownSearchEntries(deskTree())),
            entriesText(flattenSearchable(deskTree())));
}

TEST(ShownName, ReplacesOnlyTheExactNameOfUnnamedHubs) {
  const struct {
    const char* name;
    const char* shown;
  } rows[] = {
      {"hub_device", "USB Hub"},
      {"Hub_Device", "Hub_Device"},
      {"hub_device ", "hub_device "},
      {"Quarry Hub", "Quarry Hub"},
      {"", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(usbDevice(row.name).shownName(), row.shown);
  }
}

} // namespace
} // namespace tamberline
