#include "support/language_scope.h"
#include "support/sample_records.h"
#include "support/tree_text.h"
#include "tree/port_tree.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tamberline {
namespace {

ChargerInfo adapter() {
  return ChargerInfo{.name = "96W Adapter", .isConnected = true};
}

const ThunderboltBus& busOf(const TreeNode& node) {
  return std::get<TreeNode::TBPort>(node.kind).bus;
}

TEST(PortTree, IsEmptyWithoutAnything) {
  EXPECT_EQ(treeText(buildPortTree({})), "");
}

TEST(PortTree, NumbersPortsFromOne) {
  ThunderboltBus bus = thunderboltBus(0, {thunderboltDevice("Disk")});
  bus.hostName = "Workshop";
  bus.uid = "0x99";
  bus.port = {"receptacle_connected", "Up to 40 Gb/s", "0x2"};
  const std::vector<TreeNode> tree = buildPortTree({.thunderboltBuses = {bus}});

  ASSERT_EQ(tree.size(), 1U);
  EXPECT_EQ(busOf(tree[0]).busNumber, 1);
  EXPECT_EQ(busOf(tree[0]).displayName(), "Thunderbolt Port 1");
  EXPECT_EQ(busOf(tree[0]).hostName, "Workshop");
  EXPECT_EQ(busOf(tree[0]).uid, "0x99");
  EXPECT_EQ(busOf(tree[0]).port.badgeText(), "40 Gb/s ×2");
  EXPECT_EQ(busOf(tree[0]).connectedDevices.size(), 1U);
  EXPECT_NE(busOf(tree[0]).id, bus.id);
}

TEST(PortTree, SortsPortsByNumberAndKeepsTheOrderOfEqualOnes) {
  const std::vector<TreeNode> tree = buildPortTree(
      {.thunderboltBuses = {thunderboltBus(2), thunderboltBus(0, {thunderboltDevice("first")}),
                            thunderboltBus(1), thunderboltBus(0, {thunderboltDevice("second")})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb first
port 1
  tb second
port 2
port 3
)");
}

TEST(PortTree, KeepsTheOrderOfManyEqualPorts) {
  std::vector<ThunderboltBus> buses;
  std::string expected;
  for (int index = 0; index < 100; ++index) {
    const std::string name = "Disk " + std::to_string(index);
    buses.push_back(thunderboltBus(0, {thunderboltDevice(name)}));
    expected += "port 1\n  tb " + name + "\n";
  }

  EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = buses})), expected);
}

TEST(PortTree, PutsDevicesOfOwnControllersBehindThePortsThunderboltDevices) {
  const std::vector<TreeNode> tree = buildPortTree(
      {.thunderboltBuses = {thunderboltBus(0, {thunderboltDevice("Display")}), thunderboltBus(1)},
       .usbBuses = {internalBus({usbDeviceOnPort(1, "Keys"), usbDeviceOnPort(0, "Disk")}),
                    internalBus({usbDeviceOnPort(0, "Mouse")})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb Display
  usb Disk (10 Gb/s, 900 mA)
  usb Mouse (10 Gb/s, 900 mA)
port 2
  usb Keys (10 Gb/s, 900 mA)
)");
}

TEST(PortTree, LeavesOutDevicesWhosePortHasNoThunderboltBus) {
  const std::vector<TreeNode> tree = buildPortTree(
      {.thunderboltBuses = {thunderboltBus(0)},
       .usbBuses = {internalBus({usbDeviceOnPort(5, "Elsewhere"), usbDevice("Nowhere")})}});

  EXPECT_EQ(treeText(tree), "port 1\n");
}

TEST(PortTree, LooksForAPortOnlyAtTheDevicesDirectlyOnTheBus) {
  USBDevice hub = usbDevice("Hub", {usbDeviceOnPort(1, "Disk")});
  hub.physicalPort = 0;
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(0), thunderboltBus(1)},
                     .usbBuses = {internalBus({hub})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  usb Hub (10 Gb/s, 900 mA)
    usb Disk (10 Gb/s, 900 mA)
port 2
)");
}

TEST(PortTree, GivesADeviceTheCurrentLimitOfItsPortOrElseOfItsBus) {
  const std::vector<TreeNode> tree = buildPortTree(
      {.thunderboltBuses = {thunderboltBus(0), thunderboltBus(1), thunderboltBus(2)},
       .usbBuses = {internalBus(
           {usbDeviceOnPort(0, "Disk"), usbDeviceOnPort(1, "Keys"), usbDeviceOnPort(2, "Mouse")})},
       .portCurrentLimitMa = {{2, 3000}, {3, 0}}});

  EXPECT_EQ(treeText(tree), R"(port 1
  usb Disk (10 Gb/s, 900 mA)
port 2
  usb Keys (10 Gb/s, 3000 mA)
port 3
  usb Mouse (10 Gb/s, 0 mA)
)");
}

TEST(PortTree, IgnoresPortLimitsOnAddOnBuses) {
  const std::vector<TreeNode> tree =
      buildPortTree({.usbBuses = {addOnBus("USB20Bus", {usbDeviceOnPort(1, "Disk")})},
                     .portCurrentLimitMa = {{2, 3000}}});

  EXPECT_EQ(treeText(tree), R"(bus USB 2.0 Bus
  usb Disk (0.48 Gb/s, 500 mA)
)");
}

TEST(PortTree, ClampsAbsurdPortNumbers) {
  const std::int64_t highest = std::numeric_limits<std::int64_t>::max();
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(highest)},
                     .usbBuses = {internalBus({usbDeviceOnPort(highest, "Disk")})}});

  EXPECT_EQ(treeText(tree), "port 9223372036854775807\n  usb Disk (10 Gb/s, 900 mA)\n");
}

TEST(PortTree, PutsAUSBCAdapterFirstOnItsPort) {
  const std::vector<TreeNode> tree = buildPortTree(
      {.thunderboltBuses = {thunderboltBus(1, {thunderboltDevice("Display")}), thunderboltBus(0)},
       .charger = adapter(),
       .hpmPorts = {chargerPort(2)}});

  EXPECT_EQ(treeText(tree), R"(port 1
port 2
  charger 96W Adapter on Thunderbolt Port 2 via USB-C
  tb Display
)");
}

TEST(PortTree, PutsAMagSafeAdapterFirst) {
  ChargerInfo charger = adapter();
  charger.connectsViaUSBC = true;
  const std::vector<TreeNode> tree = buildPortTree({.thunderboltBuses = {thunderboltBus(0)},
                                                    .usbBuses = {addOnBus("USB31Bus", {})},
                                                    .charger = charger,
                                                    .hpmPorts = {magSafePort(1)}});

  EXPECT_EQ(treeText(tree), R"(charger 96W Adapter on MagSafe
port 1
bus USB 3.1 Bus
)");
}

TEST(PortTree, LabelsTheAdaptersPortInTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);
  const std::vector<TreeNode> tree = buildPortTree({.thunderboltBuses = {thunderboltBus(0)},
                                                    .charger = adapter(),
                                                    .hpmPorts = {chargerPort(1)}});

  EXPECT_EQ(treeText(tree), "port 1\n  charger 96W Adapter on Thunderbolt-Port 1 via USB-C\n");
}

TEST(PortTree, UsesTheFirstControllerThatDetectsAnAdapter) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(0), thunderboltBus(1), thunderboltBus(2)},
                     .charger = adapter(),
                     .hpmPorts = {HPMPort{.portNumber = 1}, chargerPort(3), chargerPort(2)}});

  EXPECT_EQ(treeText(tree), R"(port 1
port 2
port 3
  charger 96W Adapter on Thunderbolt Port 3 via USB-C
)");
}

TEST(PortTree, ShowsAnAdapterOnTheFirstOfTwoPortsOfItsNumber) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(0), thunderboltBus(0)},
                     .charger = adapter(),
                     .hpmPorts = {chargerPort(1)}});

  EXPECT_EQ(treeText(tree), R"(port 1
  charger 96W Adapter on Thunderbolt Port 1 via USB-C
port 1
)");
}

TEST(PortTree, LeavesOutAnAdapterThatHasNoPlace) {
  ChargerInfo unplugged = adapter();
  unplugged.isConnected = false;
  const struct {
    const char* description;
    std::optional<ChargerInfo> charger;
    std::vector<HPMPort> hpmPorts;
  } rows[] = {
      {"no adapter", std::nullopt, {magSafePort(1)}},
      {"not connected", unplugged, {magSafePort(1)}},
      {"no controller sees it", adapter(), {HPMPort{.portNumber = 1}}},
      {"no controllers", adapter(), {}},
      {"no port of that number", adapter(), {chargerPort(4)}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = {thunderboltBus(0)},
                                      .charger = row.charger,
                                      .hpmPorts = row.hpmPorts})),
              "port 1\n");
  }
}

TEST(PortTree, MarksAnEmptyPortThatOnlyPowersADevice) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(0), thunderboltBus(1)},
                     .hpmPorts = {chargeOnlyPort(1), HPMPort{.portNumber = 2}}});

  EXPECT_EQ(treeText(tree), "port 1\n  charging only\nport 2\n");
}

TEST(PortTree, ChecksEveryControllerOfAPortForAChargingOnlyDevice) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(0)},
                     .hpmPorts = {HPMPort{.portNumber = 1}, chargeOnlyPort(1)}});

  EXPECT_EQ(treeText(tree), "port 1\n  charging only\n");
}

TEST(PortTree, MarksNoPortThatShowsAnything) {
  const std::vector<HPMPort> chargeOnly = {chargeOnlyPort(1)};
  EXPECT_EQ(treeText(buildPortTree(
                {.thunderboltBuses = {thunderboltBus(0, {thunderboltDevice("Display")})},
                 .hpmPorts = chargeOnly})),
            "port 1\n  tb Display\n");
  EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = {thunderboltBus(0)},
                                    .usbBuses = {internalBus({usbDeviceOnPort(0, "Disk")})},
                                    .hpmPorts = chargeOnly})),
            "port 1\n  usb Disk (10 Gb/s, 900 mA)\n");
  EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = {thunderboltBus(0)},
                                    .charger = adapter(),
                                    .hpmPorts = {chargerPort(1), chargeOnlyPort(1)}})),
            "port 1\n  charger 96W Adapter on Thunderbolt Port 1 via USB-C\n");
}

TEST(PortTree, ShowsUnclaimedAddOnBusesLastInTheirOrder) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(0, {thunderboltDevice("Display")})},
                     .usbBuses = {addOnBus("USB31Bus", {usbDevice("Disk")}),
                                  internalBus({usbDeviceOnPort(0, "Keys")}),
                                  addOnBus("USB20Bus", {usbDevice("Mouse")})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb Display
  usb Keys (10 Gb/s, 900 mA)
bus USB 3.1 Bus
  usb Disk (10 Gb/s, 900 mA)
bus USB 2.0 Bus
  usb Mouse (0.48 Gb/s, 500 mA)
)");
}

TEST(PortTree, AssignsTheAddOnBusesToTheirDock) {
  const std::vector<TreeNode> tree = buildPortTree(
      {.thunderboltBuses = {thunderboltBus(0, {thunderboltDevice("Harbour Dock")})},
       .usbBuses = {addOnBus("USB31Bus", {usbDevice("Disk")}), addOnBus("USB20Bus", {})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb Harbour Dock
    bus USB 3.1 Bus
      usb Disk (10 Gb/s, 900 mA)
    bus USB 2.0 Bus
)");
}

TEST(PortTree, AssignsBuiltInBusesToNoDock) {
  USBBus builtIn = addOnBus("USB20Bus", {usbDevice("Camera")});
  builtIn.isBuiltIn = true;
  EXPECT_EQ(treeText(buildPortTree(
                {.thunderboltBuses = {thunderboltBus(0, {thunderboltDevice("Harbour Dock")})},
                 .usbBuses = {builtIn, addOnBus("USB31Bus", {})}})),
            R"(port 1
  tb Harbour Dock
    bus USB 3.1 Bus
bus USB 2.0 Bus
  usb Camera (0.48 Gb/s, 500 mA)
)");
}

TEST(PortTree, ShowsTheDrivesOfAnEnclosureBehindItsChain) {
  ThunderboltDevice enclosure = thunderboltDevice("Slate", {thunderboltDevice("Behind")});
  enclosure.drives = {USBDevice{.name = "First", .untokenedGbps = 40},
                      USBDevice{.name = "Second", .untokenedGbps = 80}};
  EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = {thunderboltBus(0, {enclosure})}})),
            R"(port 1
  tb Slate
    tb Behind
    usb First (40 Gb/s, 0 mA)
    usb Second (80 Gb/s, 0 mA)
)");
}

TEST(PortTree, PutsAnAdapterThatIsOnNoKnownPortFirst) {
  ChargerInfo charger = adapter();
  charger.isOnNoKnownPort = true;
  EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = {thunderboltBus(0)}, .charger = charger})),
            "charger 96W Adapter on no port\nport 1\n");
  charger.isConnected = false;
  EXPECT_EQ(treeText(buildPortTree({.thunderboltBuses = {thunderboltBus(0)}, .charger = charger})),
            "port 1\n");
}

TEST(PortTree, AssignsTheAddOnBusesToTheLastDockOfAChain) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(
                         0, {thunderboltDevice("Upper Dock", {thunderboltDevice("Lower Dock")})})},
                     .usbBuses = {addOnBus("USB31Bus", {}), addOnBus("USB20Bus", {})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb Upper Dock
    tb Lower Dock
      bus USB 3.1 Bus
      bus USB 2.0 Bus
)");
}

TEST(PortTree, AssignsTheAddOnBusesToTheDockOnTheReportsFirstPort) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(1, {thunderboltDevice("First Dock")}),
                                          thunderboltBus(0, {thunderboltDevice("Second Dock")})},
                     .usbBuses = {addOnBus("USB31Bus", {})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb Second Dock
port 2
  tb First Dock
    bus USB 3.1 Bus
)");
}

TEST(PortTree, ShowsADocksChainBeforeItsBuses) {
  const std::vector<TreeNode> tree =
      buildPortTree({.thunderboltBuses = {thunderboltBus(
                         0, {thunderboltDevice("Dock", {thunderboltDevice("Display")})})},
                     .usbBuses = {addOnBus("USB31Bus", {})}});

  EXPECT_EQ(treeText(tree), R"(port 1
  tb Dock
    tb Display
    bus USB 3.1 Bus
)");
}

TEST(DockNames, AreRecognisedByAWordInAnyLetterCase) {
  const struct {
    const char* name;
    bool isDock;
  } rows[] = {
      {"Harbour Dock", true},    {"HARBOUR DOCK", true},
      {"Docking Bay", true},     {"Element Hub", true},
      {"WorkStation", true},     {"Breakout Box", true},
      {"Studio Display", false}, {"Break Out", false},
      {"Quarry Disk", false},    {"", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::set<Uuid> usedBusIDs;
    const std::vector<USBBus> buses = {addOnBus("USB31Bus", {})};
    const std::vector<TreeNode> nodes =
        buildTBDeviceNodes({thunderboltDevice(row.name)}, buses, usedBusIDs);

    ASSERT_EQ(nodes.size(), 1U);
    EXPECT_EQ(nodes[0].hasChildren(), row.isDock);
    EXPECT_EQ(usedBusIDs.contains(buses[0].id), row.isDock);
  }
}

TEST(DockNames, DoNotClaimBusesOfAnEarlierDock) {
  const std::vector<USBBus> buses = {addOnBus("USB31Bus", {}), addOnBus("USB20Bus", {})};
  std::set<Uuid> usedBusIDs = {buses[0].id};
  const std::vector<TreeNode> nodes =
      buildTBDeviceNodes({thunderboltDevice("Dock")}, buses, usedBusIDs);

  EXPECT_EQ(treeText(nodes), "tb Dock\n  bus USB 2.0 Bus\n");
}

TEST(USBDeviceNodes, PassBothLimitsThroughHubs) {
  const std::vector<TreeNode> nodes = usbDeviceNodes(
      {usbDevice("Hub", {usbDevice("Inner Hub", {usbDevice("Disk")}), usbDevice("Keys")}),
       usbDevice("Mouse")},
      0.48, 1500);

  EXPECT_EQ(treeText(nodes), R"(usb Hub (0.48 Gb/s, 1500 mA)
  usb Inner Hub (0.48 Gb/s, 1500 mA)
    usb Disk (0.48 Gb/s, 1500 mA)
  usb Keys (0.48 Gb/s, 1500 mA)
usb Mouse (0.48 Gb/s, 1500 mA)
)");
}

TEST(USBDeviceNodes, KeepVolumesInsideTheirDevice) {
  USBDevice disk = usbDevice("Disk");
  disk.volumes = {{"Data", "/Volumes/Data"}};
  const std::vector<TreeNode> nodes = usbDeviceNodes({disk}, 10, 900);

  ASSERT_EQ(nodes.size(), 1U);
  EXPECT_FALSE(nodes[0].hasChildren());
  EXPECT_EQ(std::get<TreeNode::USBDeviceEntry>(nodes[0].kind).device.volumes, disk.volumes);
}

} // namespace
} // namespace tamberline
