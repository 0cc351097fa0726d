#include "support/language_scope.h"
#include "support/sample_records.h"
#include "tree/port_tree.h"
#include "views/tree_rows.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <utility>

namespace tamberline {
namespace {

TreeNode thunderboltNode(const ThunderboltDevice& device, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::TBDevice{device}, std::move(children));
}

TreeNode busNode(std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})}, std::move(children));
}

TreeNode usbNode(const USBDevice& device, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBDeviceEntry{device, 10.0, 900}, std::move(children));
}

TreeNode drawing(std::int64_t usedMa) {
  return usbNode(USBDevice{.name = "Disk", .busPowerUsed = usedMa});
}

TreeNode chargerNode() {
  return TreeNode(TreeNode::Charger{{.name = "Adapter"}});
}

ExpandableRow rowOf(const TreeNode& node) {
  return expandableRows({node}, 0).at(0);
}

TBDeviceRow thunderboltRow(const ThunderboltDevice& device, std::vector<TreeNode> children = {}) {
  return std::get<TBDeviceRow>(rowOf(thunderboltNode(device, std::move(children))).content);
}

USBDeviceDetailRow usbRow(const TreeNode& node) {
  return std::get<USBDeviceDetailRow>(rowOf(node).content);
}

/// A device with the token's speed on a bus with that max.
USBDeviceDetailRow usbRow(const std::string& speed, double busMaxGbps) {
  return usbRow(TreeNode(TreeNode::USBDeviceEntry{USBDevice{.speed = speed}, busMaxGbps, 900}));
}

std::string tintText(const TreeNode& node) {
  const Tint tint = rowOf(node).tint;
  return std::string(nameOf(tint.color)) + " " + std::to_string(tint.opacity).substr(0, 4);
}

TEST(ExpandableRows, AreNestedWithTheirDepthAndPosition) {
  TreeNode hub =
      usbNode(usbDevice("Hub"), {usbNode(usbDevice("Disk")), usbNode(usbDevice("Keys"))});
  hub.id = "/hub";
  hub.children[1].id = "/hub/keys";
  const std::vector<ExpandableRow> rows = expandableRows({hub, chargerNode()}, 3);

  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].id, "/hub");
  EXPECT_EQ(rows[0].depth, 3);
  EXPECT_FALSE(rows[0].isLast);
  EXPECT_TRUE(rows[1].isLast);
  ASSERT_EQ(rows[0].children.size(), 2U);
  EXPECT_EQ(rows[0].children[1].id, "/hub/keys");
  EXPECT_EQ(rows[0].children[1].depth, 4);
  EXPECT_FALSE(rows[0].children[0].isLast);
  EXPECT_TRUE(rows[0].children[1].isLast);
}

TEST(ExpandableRows, AreNoneForNoNodes) {
  EXPECT_TRUE(expandableRows({}, 0).empty());
}

TEST(ExpandableRows, RejectAPort) {
  const std::vector<TreeNode> nodes = {TreeNode(TreeNode::TBPort{thunderboltBus(1)})};

  EXPECT_THROW(expandableRows(nodes, 0), std::logic_error);
}

TEST(ExpandableRows, StartOpenOnlyForThunderboltDevicesWithChildren) {
  EXPECT_TRUE(rowOf(thunderboltNode(thunderboltDevice("Dock"), {busNode()})).startsExpanded);
  EXPECT_FALSE(rowOf(thunderboltNode(thunderboltDevice("Dock"))).startsExpanded);
  EXPECT_FALSE(rowOf(usbNode(usbDevice("Hub"), {drawing(0)})).startsExpanded);
  EXPECT_FALSE(rowOf(busNode({drawing(0)})).startsExpanded);
  EXPECT_FALSE(rowOf(chargerNode()).startsExpanded);
  EXPECT_FALSE(rowOf(TreeNode(TreeNode::ChargingOnly{})).startsExpanded);
}

TEST(ExpandableRows, AreTintedByKind) {
  EXPECT_EQ(tintText(thunderboltNode(thunderboltDevice("Dock"))), "accent 0.05");
  EXPECT_EQ(tintText(busNode()), "grey 0.06");
  EXPECT_EQ(tintText(usbNode(usbDevice("Hub"), {drawing(0)})), "grey 0.06");
  EXPECT_EQ(tintText(usbNode(usbDevice("Disk"))), "textBackground 0.50");
  EXPECT_EQ(tintText(chargerNode()), "yellow 0.07");
  EXPECT_EQ(tintText(TreeNode(TreeNode::ChargingOnly{})), "yellow 0.07");
}

TEST(ThunderboltRow, ShowsIconNameAndMode) {
  const TBDeviceRow row = thunderboltRow({.name = "Harbour Dock", .mode = "usb4_gen3x2"});

  EXPECT_EQ(row.icon, "dock.rectangle");
  EXPECT_EQ(row.name, "Harbour Dock");
  ASSERT_TRUE(row.modeBadge.has_value());
  EXPECT_EQ(row.modeBadge->text, "USB4 40G");
  EXPECT_EQ(row.modeBadge->color, Color::Accent);
  EXPECT_EQ(row.modeBadge->icon, std::nullopt);
  EXPECT_EQ(row.modeBadge->tooltip, "Thunderbolt / USB4 connection mode this device negotiated");
}

TEST(ThunderboltRow, HasNoBadgeWithoutAMode) {
  EXPECT_FALSE(thunderboltRow({.name = "Harbour Dock"}).modeBadge.has_value());
}

TEST(ThunderboltRow, AddsUpTheRatedDrawOfAttachedDevices) {
  EXPECT_EQ(thunderboltRow({}, {busNode({drawing(500), drawing(400)})}).ratedDraw, "4.5W");
  EXPECT_EQ(thunderboltRow({}, {drawing(1)}).ratedDraw, "0.0W");
  EXPECT_EQ(thunderboltRow({}, {drawing(0)}).ratedDraw, std::nullopt);
  EXPECT_EQ(thunderboltRow({}).ratedDraw, std::nullopt);
}

TEST(ThunderboltRow, MeasuresItsLinkAgainstFortyGigabits) {
  const struct {
    const char* speed;
    const char* width;
    double usedGbps;
    const char* speedLabel;
    const char* portMaxLabel;
  } rows[] = {
      {"20 Gb/s", "0x2", 40, "20 Gb/s ×2 = 40 Gb/s", "at port max ✓"},
      {"20 Gb/s", "0x1", 20, "20 Gb/s", "40 Gb/s port max"},
      {"Up to 40 Gb/s", "0x2", 80, "40 Gb/s ×2 = 80 Gb/s", "at port max ✓"},
      {"Up to 40 Gb/s", "", 40, "40 Gb/s", "at port max ✓"},
      {"10 Gb/s", "0x2", 20, "10 Gb/s ×2 = 20 Gb/s", "40 Gb/s port max"},
      {"5 Gb/s", "", 5, "5 Gb/s", "40 Gb/s port max"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.speedLabel);
    const auto bar =
        thunderboltRow({.upstreamSpeed = row.speed, .upstreamWidth = row.width}).speedBar;
    ASSERT_TRUE(bar.has_value());
    EXPECT_EQ(bar->usedGbps, row.usedGbps);
    EXPECT_EQ(bar->portMaxGbps, 40);
    EXPECT_EQ(bar->speedLabel, row.speedLabel);
    EXPECT_EQ(bar->portMaxLabel, row.portMaxLabel);
  }
}

TEST(ThunderboltRow, NotesItsLinksActualSpeed) {
  const TBDeviceRow row = thunderboltRow({.upstreamSpeed = "Up to 40 Gb/s x1",
                                          .upstreamWidth = "0x2",
                                          .link = TrueLink{40, 40, 2, 2}});

  ASSERT_TRUE(row.link.has_value());
  EXPECT_EQ(row.link->link, (TrueLink{40, 40, 2, 2}));
  EXPECT_EQ(row.link->text, "Link each way: 40 Gb/s, 2 lanes");
  EXPECT_EQ(row.speedBar->tooltip, "Negotiated link speed vs the port's maximum. If it's below the "
                                   "max, the device or cable is the bottleneck.");
  EXPECT_EQ(thunderboltRow({.upstreamSpeed = "20 Gb/s"}).link, std::nullopt);
}

TEST(ThunderboltRow, WarnsOfADeviceThatIsNotAuthorised) {
  ThunderboltDevice device = thunderboltDevice("Disk");
  const auto rowOf = [&] {
    return std::get<TBDeviceRow>(
        expandableRows({TreeNode(TreeNode::TBDevice{device})}, 0).at(0).content);
  };
  EXPECT_FALSE(rowOf().warningBadge);
  device.isAuthorized = true;
  EXPECT_FALSE(rowOf().warningBadge);
  EXPECT_EQ(rowOf().link->isAuthorized, true);
  device.isAuthorized = false;
  ASSERT_TRUE(rowOf().warningBadge);
  EXPECT_EQ(rowOf().warningBadge->text, "not authorised");
  EXPECT_EQ(rowOf().warningBadge->color, Color::Orange);
  EXPECT_TRUE(rowOf().warningBadge->tooltip.starts_with("The computer has not allowed"));
}

TEST(USBRow, OfADriveBehindAnEnclosureShowsTheEnclosuresLink) {
  ThunderboltDevice enclosure = thunderboltDevice("Slate");
  enclosure.drives = {USBDevice{.name = "Slate 2TB",
                                .speed = "20 Gb/s",
                                .volumes = {{"Footage", "/media/Footage"}},
                                .untokenedGbps = 20,
                                .isTunneledDrive = true}};
  std::set<Uuid> usedBusIDs;
  const auto nodes = buildTBDeviceNodes(SharedList<ThunderboltDevice>({enclosure}), {}, usedBusIDs);
  const auto rows = expandableRows(nodes, 0).at(0).children;
  ASSERT_EQ(rows.size(), 1U);
  const auto& row = std::get<USBDeviceDetailRow>(rows[0].content);
  EXPECT_EQ(row.icon, "externaldrive");
  EXPECT_EQ(row.speedText, "20 Gb/s");
  EXPECT_EQ(row.speedBar->speedLabel, "PCI Express");
  EXPECT_EQ(row.speedBar->portMaxLabel, "40 Gb/s port max");
  EXPECT_EQ(row.speedNote->note, "Port supports up to 40 Gb/s — device or cable is the bottleneck");
  EXPECT_EQ(row.volumes.at(0).mountPoint, "/media/Footage");
  EXPECT_FALSE(row.powerBar);
}

TEST(ThunderboltRow, HasNoBarWithoutAKnownSpeed) {
  EXPECT_FALSE(thunderboltRow({.upstreamSpeed = "", .upstreamWidth = "0x2"}).speedBar.has_value());
  EXPECT_FALSE(thunderboltRow({.upstreamSpeed = "0 Gb/s"}).speedBar.has_value());
}

TEST(BusRow, ShowsNameAndRatedDraw) {
  const auto row = std::get<USBBusHeaderRow>(rowOf(busNode({drawing(900)})).content);

  EXPECT_EQ(row.name, "USB 3.1 Bus");
  EXPECT_EQ(row.ratedDraw, "4.5W rated");
}

TEST(BusRow, NotesItsController) {
  const auto noteOf = [](const USBBus& bus) { return usbBusHeaderRow(bus, {}).note; };
  EXPECT_EQ(noteOf({.hostController = "xHCI Host Controller 0000:00:14.0"}),
            "xHCI Host Controller 0000:00:14.0");
  EXPECT_EQ(noteOf({}), std::nullopt);
}

TEST(BusRow, ShowsNoRatedDrawBelowOneMilliampere) {
  const USBBus bus = addOnBus("USB20Bus", {});

  EXPECT_EQ(usbBusHeaderRow(bus, {.usedMa = 1, .allocMa = 0}).ratedDraw, "0.0W rated");
  EXPECT_EQ(usbBusHeaderRow(bus, {.usedMa = 0, .allocMa = 900}).ratedDraw, std::nullopt);
}

TEST(USBRow, ShowsIconNameAndSpeed) {
  const USBDeviceDetailRow row = usbRow(usbNode(usbDevice("Quarry SSD")));

  EXPECT_EQ(row.icon, "externaldrive");
  EXPECT_EQ(row.name, "Quarry SSD");
  EXPECT_EQ(row.speedText, "5 Gb/s");
  EXPECT_EQ(row.speedTooltip, "Negotiated USB link speed (green = at the port's max)");
}

TEST(USBRow, OfAnUnnamedHubIsCalledAHub) {
  const USBDeviceDetailRow row = usbRow(usbNode(usbDevice("hub_device")));

  EXPECT_EQ(row.icon, "arrow.triangle.branch");
  EXPECT_EQ(row.name, "USB Hub");
}

TEST(USBRow, OfANamedHubKeepsItsName) {
  EXPECT_EQ(usbRow(usbNode(usbDevice("Quarry Box"), {drawing(0)})).name, "Quarry Box");
}

TEST(USBRow, ColoursTheSpeedByItsShareOfTheMaximum) {
  const struct {
    const char* speed;
    double busMaxGbps;
    Color color;
  } rows[] = {
      {"super_speed_plus", 10, Color::Green},    {"super_speed_plus", 5, Color::Green},
      {"high_speed", 0.48 / 0.92, Color::Green}, {"high_speed", 0.5218, Color::Amber},
      {"super_speed", 10, Color::Amber},         {"super_speed_plus", 10 / 0.45, Color::Amber},
      {"super_speed_plus", 22.3, Color::Orange}, {"high_speed", 10, Color::Orange},
      {"unheard_of", 10, Color::Orange},         {"super_speed", 0, Color::Orange},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.speed << " of " << row.busMaxGbps);
    EXPECT_EQ(nameOf(usbRow(row.speed, row.busMaxGbps).speedColor), nameOf(row.color));
  }
}

TEST(USBRow, ExplainsASlowLink) {
  const auto note = usbRow("high_speed", 10).speedNote;

  ASSERT_TRUE(note.has_value());
  EXPECT_EQ(note->title, "Why isn't this at full speed?");
  EXPECT_EQ(note->note, "Port supports up to 10 Gb/s — device or cable is the bottleneck");
}

TEST(USBRow, ExplainsNothingAtFullOrUnknownSpeed) {
  EXPECT_FALSE(usbRow("super_speed_plus", 10).speedNote.has_value());
  EXPECT_FALSE(usbRow("unheard_of", 10).speedNote.has_value());
}

TEST(USBRow, MeasuresItsLinkAgainstTheBus) {
  const struct {
    const char* speed;
    double busMaxGbps;
    const char* speedLabel;
    const char* portMaxLabel;
  } rows[] = {
      {"super_speed_plus", 10, "USB 3.2 Gen 2", "at port max ✓"},
      {"super_speed_plus", 5, "USB 3.2 Gen 2", "at port max ✓"},
      {"super_speed_plus", 10 / 0.95, "USB 3.2 Gen 2", "at port max ✓"},
      {"super_speed_plus", 10.6, "USB 3.2 Gen 2", "10.6 Gb/s port max"},
      {"super_speed", 10, "USB 3.2 Gen 1", "10 Gb/s port max"},
      {"high_speed", 5, "USB 2.0 Hi-Speed", "5 Gb/s port max"},
      {"full_speed", 0.48, "USB 1.1 Full-Speed", "0.48 Gb/s port max"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.speed << " of " << row.busMaxGbps);
    const auto bar = usbRow(row.speed, row.busMaxGbps).speedBar;
    ASSERT_TRUE(bar.has_value());
    EXPECT_EQ(bar->portMaxGbps, row.busMaxGbps);
    EXPECT_EQ(bar->speedLabel, row.speedLabel);
    EXPECT_EQ(bar->portMaxLabel, row.portMaxLabel);
  }
  EXPECT_EQ(usbRow("super_speed", 10).speedBar->usedGbps, 5);
}

TEST(USBRow, HasNoSpeedBarWithoutAKnownSpeed) {
  EXPECT_FALSE(usbRow("unheard_of", 10).speedBar.has_value());
  EXPECT_EQ(usbRow("unheard_of", 10).speedText, "unheard_of");
  EXPECT_EQ(usbRow("", 10).speedText, "—");
}

TEST(USBRow, ShowsItsRatedDrawAgainstThePort) {
  const auto bar = usbRow(usbNode({.busPower = 900, .busPowerUsed = 500})).powerBar;

  ASSERT_TRUE(bar.has_value());
  EXPECT_EQ(bar->used, "2.5 W rated");
  EXPECT_EQ(bar->allocated, "· 4.5 W allocated");
  EXPECT_EQ(bar->portMax, "4.5 W port max");
  EXPECT_EQ(bar->portMaxMa, 900);
}

TEST(USBRow, TakesTheDrawForTheAllocationWhenThereIsNone) {
  const auto bar = usbRow(usbNode({.busPowerUsed = 500})).powerBar;

  ASSERT_TRUE(bar.has_value());
  EXPECT_EQ(bar->allocatedMa, 500);
  EXPECT_EQ(bar->allocated, std::nullopt);
}

TEST(USBRow, HasNoPowerBarWithoutARatedDraw) {
  EXPECT_FALSE(usbRow(usbNode({.busPower = 900})).powerBar.has_value());
  EXPECT_FALSE(usbRow(usbNode({.busPower = 900, .busPowerUsed = 0})).powerBar.has_value());
  EXPECT_TRUE(usbRow(usbNode({.busPower = 900, .busPowerUsed = 1})).powerBar.has_value());
}

TEST(USBRow, OfAHubShowsItsOwnDrawWithoutThePortsMaximum) {
  const USBDevice named = {.name = "Box", .busPower = 900, .busPowerUsed = 100};
  const USBDevice unnamed = {.name = "hub_device", .busPower = 900, .busPowerUsed = 100};
  for (const TreeNode& hub : {usbNode(named, {drawing(500)}), usbNode(unnamed)}) {
    const auto bar = usbRow(hub).powerBar;
    ASSERT_TRUE(bar.has_value());
    EXPECT_EQ(bar->used, "0.5 W own draw (rated)");
    EXPECT_EQ(bar->allocated, "· 4.5 W allocated");
    EXPECT_EQ(bar->portMax, std::nullopt);
  }
}

TEST(USBRow, OfAHubShowsTheTotalOfAttachedDevices) {
  const auto total = usbRow(usbNode({.name = "Box", .busPowerUsed = 100}, {drawing(500)})).hubTotal;

  ASSERT_TRUE(total.has_value());
  EXPECT_EQ(total->text, "3.0W total");
  EXPECT_EQ(total->tooltip, "3.0 W hub total (rated draw)");
}

TEST(USBRow, ShowsATotalOnlyForAHubWithChildrenThatDrawPower) {
  EXPECT_FALSE(usbRow(usbNode(usbDevice("Box"), {drawing(0)})).hubTotal.has_value());
  EXPECT_TRUE(usbRow(usbNode(usbDevice("Box"), {drawing(1)})).hubTotal.has_value());
  EXPECT_FALSE(usbRow(usbNode({.name = "hub_device", .busPowerUsed = 100})).hubTotal.has_value());
}

TEST(USBRow, ListsItsVolumes) {
  const USBDeviceDetailRow row =
      usbRow(usbNode({.volumes = {{"Data", "/Volumes/Data"}, {"Photos", "/Volumes/Photos"}}}));

  ASSERT_EQ(row.volumes.size(), 2U);
  EXPECT_EQ(row.volumes[0].name, "Data");
  EXPECT_EQ(row.volumes[1].mountPoint, "/Volumes/Photos");
}

TEST(USBRow, NotesFurtherProperties) {
  const auto noteOf = [](const USBDevice& device) { return usbRow(usbNode(device)).note; };
  EXPECT_EQ(noteOf({.extraCurrentMa = 1600}), "Extra operating current: 1600 mA");
  EXPECT_EQ(noteOf({.isBuiltIn = true}), "Built in");
  EXPECT_EQ(noteOf({.extraCurrentMa = 1, .isBuiltIn = true, .isTunneled = true}),
            "Extra operating current: 1 mA · Built in · Through a USB4 tunnel");
  EXPECT_EQ(noteOf({.extraCurrentMa = 0, .isBuiltIn = false, .isTunneled = false}), std::nullopt);
  EXPECT_EQ(noteOf({}), std::nullopt);
}

TEST(ChargerRow, ShowsNameAndRating) {
  const ChargerRow row =
      chargerRow({.name = "Adapter", .ratedWatts = 96, .currentWatts = 48, .isCharging = true});

  EXPECT_EQ(row.name, "Adapter");
  EXPECT_EQ(row.rated, "96 W rated");
  EXPECT_TRUE(row.isCharging);
}

TEST(ChargerRow, HasNoRatingWithoutARatedAdapter) {
  const ChargerRow row = chargerRow({.name = "Adapter", .currentWatts = 48});

  EXPECT_EQ(row.rated, std::nullopt);
  EXPECT_FALSE(row.isCharging);
}

TEST(ChargingOnlyRow, SaysWhatIsMissing) {
  const auto row = std::get<ChargingOnlyRow>(rowOf(TreeNode(TreeNode::ChargingOnly{})).content);

  EXPECT_EQ(row.title, "Charging only");
  EXPECT_EQ(row.detail,
            "Powered, but no data connection — unlock or switch the device to data mode");
  EXPECT_EQ(row.badge.text, "no data");
  EXPECT_EQ(row.badge.color, Color::Orange);
  EXPECT_EQ(row.badge.icon, std::nullopt);
  EXPECT_EQ(row.badge.tooltip,
            "Drawing power but presenting no USB data — a powered-off camera, locked phone, etc. "
            "(Only detectable on a direct Mac port, not behind a hub.)");
}

TEST(TreeRows, SpeakTheLanguageOfTheRun) {
  const LanguageScope french(AppLanguage::fr);

  EXPECT_EQ(chargerRow({.ratedWatts = 96}).rated, "96 W nominal");
  EXPECT_EQ(usbRow("super_speed", 10).speedBar->portMaxLabel, "10 Gb/s max. port");
  EXPECT_EQ(usbRow("super_speed_plus", 10).speedBar->portMaxLabel, "au max. du port ✓");
  EXPECT_EQ(usbRow(usbNode(usbDevice("Box"), {drawing(600)})).hubTotal->tooltip,
            "3.0 W total hub (nominal)");
  EXPECT_EQ(usbRow(usbNode(usbDevice("Box"), {drawing(600)})).hubTotal->text, "3.0W total");
}

} // namespace
} // namespace tamberline
