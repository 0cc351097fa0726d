#include "panel_row_text.h"
#include "support/sample_records.h"
#include "tree/node_identifiers.h"
#include "views/panel_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace tamberline {
namespace {

TreeNode portNode(std::int64_t number, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::TBPort{thunderboltBus(number)}, std::move(children));
}

TreeNode dockNode(std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::TBDevice{thunderboltDevice("Dock")}, std::move(children));
}

TreeNode busNode(std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})}, std::move(children));
}

TreeNode usbNode(const USBDevice& device, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBDeviceEntry{device, 10, 900}, std::move(children));
}

TreeNode usbNode(const std::string& name, std::vector<TreeNode> children = {}) {
  return usbNode(usbDevice(name), std::move(children));
}

TreeNode chargerNode() {
  return TreeNode(TreeNode::Charger{{.name = "Adapter"}});
}

/// Sets the identifier of every node to the name of its record, so that tests can refer to it.
void nameByRecord(std::vector<TreeNode>& nodes) {
  for (TreeNode& node : nodes) {
    if (const auto* port = std::get_if<TreeNode::TBPort>(&node.kind)) {
      node.id = "port" + std::to_string(port->bus.busNumber);
    } else if (const auto* dock = std::get_if<TreeNode::TBDevice>(&node.kind)) {
      node.id = dock->device.name;
    } else if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
      node.id = entry->device.name;
    } else {
      node.id = node.localKey();
    }
    nameByRecord(node.children);
  }
}

Panel panelOf(std::vector<TreeNode> tree, PortFacts facts = {}) {
  nameByRecord(tree);
  return describePanel({.portTree = std::move(tree), .portFacts = std::move(facts)});
}

/// Two ports; the first has a dock with a bus with a hub with keys on it.
Panel deskPanel() {
  return panelOf(
      {portNode(1, {dockNode({busNode({usbNode("Hub", {usbNode("Keys")})})})}), portNode(2)});
}

TEST(PanelRows, AreTheHeadersOfClosedCards) {
  EXPECT_EQ(rowText(SampleStates().rowsOf(deskPanel())),
            "port header port1, closed, first, last\n"
            "port header port2, closed, first, last\n");
}

TEST(PanelRows, AreNoneWithoutCards) {
  EXPECT_EQ(rowText(SampleStates().rowsOf(describePanel({}))), "");
}

TEST(PanelRows, ShowTheOpenPartOfAnOpenCardsTree) {
  const Panel panel = deskPanel();
  SampleStates states;
  states.expansion.set("port1", true);
  EXPECT_EQ(rowText(states.rowsOf(panel)), "port header port1, open, first\n"
                                           "  tb device Dock, open\n"
                                           "    usb bus bus:USB31Bus, closed, last\n"
                                           "port header port2, closed, first, last\n")
      << "a dock starts open, a bus and a hub start closed";
  states.expansion.set("bus:USB31Bus", true);
  states.expansion.set("Hub", true);
  EXPECT_EQ(rowText(states.rowsOf(panel)), "port header port1, open, first\n"
                                           "  tb device Dock, open\n"
                                           "    usb bus bus:USB31Bus, open\n"
                                           "      usb device Hub, open\n"
                                           "        usb device Keys, last\n"
                                           "port header port2, closed, first, last\n");
  states.expansion.set("Dock", false);
  EXPECT_EQ(rowText(states.rowsOf(panel)), "port header port1, open, first\n"
                                           "  tb device Dock, closed, last\n"
                                           "port header port2, closed, first, last\n")
      << "what a closed row holds is not shown, open or not";
}

TEST(PanelRows, AreOpenIfAnOverrideSaysSo) {
  SampleStates states;
  states.expansion.set("port1", false);
  states.overrides = {"port1", "bus:USB31Bus", "nobody"};
  EXPECT_EQ(rowText(states.rowsOf(deskPanel())), "port header port1, open, first\n"
                                                 "  tb device Dock, open\n"
                                                 "    usb bus bus:USB31Bus, open\n"
                                                 "      usb device Hub, closed, last\n"
                                                 "port header port2, closed, first, last\n");
}

TEST(PanelRows, CannotOpenEmptyRows) {
  SampleStates states;
  states.overrides = {"port1", "Disk"};
  EXPECT_EQ(rowText(states.rowsOf(panelOf({portNode(1, {usbNode("Disk")})}))),
            "port header port1, open, first\n"
            "  usb device Disk, last\n");
}

TEST(PanelRows, SayThatAnOpenPortIsEmpty) {
  SampleStates states;
  states.overrides = {"port2"};
  EXPECT_EQ(rowText(states.rowsOf(deskPanel())), "port header port1, closed, first, last\n"
                                                 "port header port2, open, first\n"
                                                 "nothing attached port2//empty, last\n");
}

TEST(PanelRows, ShowThePowerOfAnOpenPortAboveItsTree) {
  const struct {
    const char* description;
    PortFacts facts;
    std::int64_t usedMa;
    const char* rows;
  } cases[] = {
      {"measured",
       {.portPowerOut = {{1, {}}}},
       0,
       "port header port1, open, first\n"
       "port power port1//power\n"
       "  usb device Disk, last\n"},
      {"rated",
       {.portCurrentLimitMa = {{1, 3000}}},
       500,
       "port header port1, open, first\n"
       "port power port1//power\n"
       "  usb device Disk, last\n"},
      {"neither",
       {},
       500,
       "port header port1, open, first\n"
       "  usb device Disk, last\n"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.description);
    SampleStates states;
    states.overrides = {"port1"};
    const TreeNode disk = usbNode(USBDevice{.name = "Disk", .busPowerUsed = row.usedMa});
    EXPECT_EQ(rowText(states.rowsOf(panelOf({portNode(1, {disk})}, row.facts))), row.rows);
  }
}

TEST(PanelRows, ShowBothPowerAndEmptinessOfAPortThatOnlyMeasures) {
  SampleStates states;
  states.overrides = {"port1"};
  EXPECT_EQ(rowText(states.rowsOf(panelOf({portNode(1)}, {.portPowerOut = {{1, {}}}}))),
            "port header port1, open, first\n"
            "port power port1//power\n"
            "nothing attached port1//empty, last\n");
}

TEST(PanelRows, ShowPartnerAndAgreedPowerOfAnOpenPort) {
  SampleStates states;
  states.overrides = {"port1"};
  EXPECT_EQ(rowText(states.rowsOf(
                panelOf({portNode(1)}, {.hpmPorts = {{.portNumber = 1,
                                                      .partner = PortPartner::audio,
                                                      .agreedPower = AgreedPower{5, 0.5}}}}))),
            "port header port1, open, first\n"
            "port power port1//power\n"
            "partner port1//partner, last\n");
}

TEST(PanelRows, ShowAStandaloneBusAlwaysOpen) {
  EXPECT_EQ(rowText(SampleStates().rowsOf(
                panelOf({busNode({usbNode("Hub", {usbNode("Keys")})}), busNode()}))),
            "bus header bus:USB31Bus, first\n"
            "  usb device Hub, closed, last\n"
            "bus header bus:USB31Bus, first\n"
            "nothing attached bus:USB31Bus//empty, last\n");
}

TEST(PanelRows, ShowTheCardOfAnAdapterAsOneRow) {
  EXPECT_EQ(rowText(SampleStates().rowsOf(panelOf({chargerNode()}))),
            "charger card charger, first, last\n");
}

TEST(PanelRows, KnowAdaptersAndChargingOnlyDevicesOnAPort) {
  SampleStates states;
  states.overrides = {"port1"};
  EXPECT_EQ(rowText(states.rowsOf(panelOf(
                {portNode(1, {chargerNode(), TreeNode(TreeNode::ChargingOnly{}), dockNode()})}))),
            "port header port1, open, first\n"
            "  charger charger\n"
            "  charging only chargeonly\n"
            "  tb device Dock, last\n");
}

TEST(PanelRows, Pulse) {
  SampleStates states;
  states.overrides = {"port1"};
  states.pulses = {{"Dock", Pulse::Throbbing}, {"port2", Pulse::Fading}, {"Keys", Pulse::Fading}};
  EXPECT_EQ(rowText(states.rowsOf(deskPanel())), "port header port1, open, first\n"
                                                 "  tb device Dock, open, throbs\n"
                                                 "    usb bus bus:USB31Bus, closed, last\n"
                                                 "port header port2, closed, first, last, fades\n");
}

USBDevice twoVolumes() {
  USBDevice disk = usbDevice("Disk");
  disk.volumes = {{"Data", "/Volumes/Data"}, {"Copy", "/Volumes/Copy"}};
  return disk;
}

TEST(PanelRows, HaveTheToolsOfEachVolume) {
  const Panel panel = panelOf({portNode(1, {usbNode(twoVolumes())})});
  SampleStates states;
  states.overrides = {"port1"};
  states.benchmarks["/Volumes/Copy"] = {BenchmarkPhase::Done{.writeMBps = 100, .readMBps = 200}};
  states.ejectStates["/Volumes/Data"] = {EjectState::Ejecting{}};
  const std::vector<PanelRow> rows = states.rowsOf(panel);

  ASSERT_EQ(rows.size(), 2U);
  const std::vector<VolumeRow>& volumes =
      std::get<SharedValue<USBDeviceDetailRow>>(rows[1].content)->volumes;
  ASSERT_EQ(volumes.size(), 2U);
  EXPECT_EQ(volumes[0].tools, volumeTools({}, EjectState{EjectState::Ejecting{}}));
  VolumeTools tested = volumeTools(states.benchmarks["/Volumes/Copy"], std::nullopt);
  tested.ejectButton->isEnabled = false; // together with the drive that is being ejected
  EXPECT_EQ(volumes[1].tools, tested);
}

PortCard fullCard() {
  PortCard card{.id = "port"};
  card.power.measured = MeasuredPower{};
  card.nothingAttached = "nothing";
  return card;
}

/// The rows of an open port that differ in their looks, as text.
std::string differingRows(const Panel& left, const Panel& right) {
  SampleStates states;
  states.overrides = {"port"};
  const std::vector<PanelRow> before = states.rowsOf(left);
  const std::vector<PanelRow> after = states.rowsOf(right);
  EXPECT_EQ(before.size(), after.size());
  std::string differing;
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
    EXPECT_EQ(before[i], before[i]);
    differing += before[i] == after[i] ? "" : rowText({after[i]});
  }
  return differing;
}

TEST(RowsOfAPort, LookDifferentOnlyIfTheyShowTheChange) {
  const std::string header = "port header port, open, first\n";
  const std::string power = "port power port//power\n";
  const std::string emptiness = "nothing attached port//empty, last\n";
  const struct {
    const char* description;
    std::function<void(PortCard&)> change;
    std::string differing;
  } rows[] = {
      {"nothing", [](PortCard&) {}, ""},
      {"use", [](PortCard& card) { card.header.inUse = true; }, header},
      {"dot's tooltip", [](PortCard& card) { card.header.dotTooltip = "new"; }, header},
      {"title", [](PortCard& card) { card.header.title = "new"; }, header},
      {"title's note", [](PortCard& card) { card.header.titleNote = "new"; }, header},
      {"item count", [](PortCard& card) { card.header.itemCount = "1 item"; }, header},
      {"item count's tooltip", [](PortCard& card) { card.header.itemCountTooltip = "new"; },
       header},
      {"badges", [](PortCard& card) { card.header.badges = {{}}; }, header},
      {"measured power", [](PortCard& card) { card.power.measured->used = "3 W"; }, power},
      {"measured bar",
       [](PortCard& card) {
         card.power.measured->bar = {0.5, 0};
       },
       power},
      {"agreed power", [](PortCard& card) { card.power.agreed = AgreedPowerRow{}; }, power},
      {"rated power", [](PortCard& card) { card.power.ratedBar = PowerBarRow{}; }, power},
      {"emptiness", [](PortCard& card) { card.nothingAttached = "new"; }, emptiness},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    PortCard changed = fullCard();
    row.change(changed);
    EXPECT_EQ(differingRows({.cards = {fullCard()}}, {.cards = {changed}}), row.differing);
  }
}

TEST(RowsOfAPort, ShowNoChangeOfTheirTree) {
  PortCard changed = fullCard();
  changed.rows = {{.id = "Disk"}};
  SampleStates states;
  const Panel left{.cards = {fullCard()}};
  const Panel right{.cards = {changed}};
  EXPECT_EQ(states.rowsOf(left).at(0), states.rowsOf(right).at(0));
}

TEST(RowsOfABus, LookDifferentWhenTheHeaderChanged) {
  const auto firstRowsLookTheSame = [](const StandaloneUSBCard& left,
                                       const StandaloneUSBCard& right) {
    const Panel before{.cards = {left}};
    const Panel after{.cards = {right}};
    const SampleStates states;
    return states.rowsOf(before).at(0) == states.rowsOf(after).at(0);
  };
  const StandaloneUSBCard card{.id = "bus", .header = {.name = "USB 3.1 Bus"}};

  EXPECT_TRUE(firstRowsLookTheSame(card, card));
  EXPECT_FALSE(firstRowsLookTheSame(card, {.id = "bus", .header = {.name = "USB 2.0 Bus"}}));
  EXPECT_FALSE(firstRowsLookTheSame(
      card, {.id = "bus", .header = {.name = "USB 3.1 Bus", .ratedDraw = "1W"}}));
  EXPECT_FALSE(firstRowsLookTheSame(
      card, {.id = "bus", .header = {.name = "USB 3.1 Bus"}, .nothingAttached = "Nothing"}));
}

TEST(RowsOfAnAdapter, LookDifferentOnlyIfTheyShowTheChange) {
  const std::string card = "charger card charger, first, last\n";
  const struct {
    const char* description;
    std::function<void(ChargerCard&)> change;
    std::string differing;
  } rows[] = {
      {"nothing", [](ChargerCard&) {}, ""},
      {"icon", [](ChargerCard& changed) { changed.header.icon = "new"; }, card},
      {"title", [](ChargerCard& changed) { changed.header.title = "new"; }, card},
      {"port", [](ChargerCard& changed) { changed.header.port = "new"; }, card},
      {"port's tooltip", [](ChargerCard& changed) { changed.header.portTooltip = "new"; }, card},
      {"name", [](ChargerCard& changed) { changed.row.name = "new"; }, card},
      {"rated power", [](ChargerCard& changed) { changed.row.rated = "new"; }, card},
      {"charging", [](ChargerCard& changed) { changed.row.isCharging = true; }, card},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    ChargerCard changed{.id = "charger"};
    row.change(changed);
    EXPECT_EQ(differingRows({.cards = {ChargerCard{.id = "charger"}}}, {.cards = {changed}}),
              row.differing);
  }
}

PanelRow treeRow(const ExpandableRow& row) {
  const Panel panel{.cards = {StandaloneUSBCard{.id = "bus", .rows = {row}}}};
  return SampleStates().rowsOf(panel).at(1);
}

TEST(RowsOfTheTree, LookDifferentWhenTheirOwnPartChanged) {
  const struct {
    const char* description;
    std::function<void(ExpandableRow&)> change;
    bool looksTheSame;
  } rows[] = {
      {"nothing", [](ExpandableRow&) {}, true},
      {"identifier", [](ExpandableRow& row) { row.id = "new"; }, false},
      {"how it starts", [](ExpandableRow& row) { row.startsExpanded = true; }, false},
      {"first child", [](ExpandableRow& row) { row.children = {{.id = "child"}}; }, false},
      {"depth", [](ExpandableRow& row) { row.depth = 1; }, false},
      {"last sibling", [](ExpandableRow& row) { row.isLast = true; }, false},
      {"tint",
       [](ExpandableRow& row) {
         row.tint = {Color::Grey, 0.5};
       },
       false},
      {"name", [](ExpandableRow& row) { std::get<USBDeviceDetailRow>(row.content).name = "new"; },
       false},
      {"volumes",
       [](ExpandableRow& row) { std::get<USBDeviceDetailRow>(row.content).volumes = {{}}; }, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const ExpandableRow before{.id = "Disk", .content = USBDeviceDetailRow{.name = "Disk"}};
    ExpandableRow after = before;
    row.change(after);
    EXPECT_EQ(treeRow(before) == treeRow(after), row.looksTheSame);
  }
}

TEST(Rows, LookDifferentWhenTheirStateChanged) {
  const ExpandableRow source{.id = "Disk", .content = USBDeviceDetailRow{.volumes = {{}}}};
  const struct {
    const char* description;
    std::function<void(PanelRow&)> change;
    bool looksTheSame;
  } rows[] = {
      {"nothing", [](PanelRow&) {}, true},
      {"identifier", [](PanelRow& row) { row.id = "new"; }, false},
      {"kind", [](PanelRow& row) { row.kind = PanelRow::Kind::TbDevice; }, false},
      {"first of card", [](PanelRow& row) { row.isFirstOfCard = true; }, false},
      {"last of card", [](PanelRow& row) { row.isLastOfCard = false; }, false},
      {"can expand", [](PanelRow& row) { row.canExpand = true; }, false},
      {"is expanded", [](PanelRow& row) { row.isExpanded = true; }, false},
      {"pulse", [](PanelRow& row) { row.pulse = Pulse::Fading; }, false},
      {"place", [](PanelRow& row) { row.place->depth = 1; }, false},
      {"tools",
       [](PanelRow& row) {
         USBDeviceDetailRow changed = *std::get<SharedValue<USBDeviceDetailRow>>(row.content);
         changed.volumes.at(0).tools.showsTestProgress = true;
         row.content = changed;
       },
       false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    PanelRow changed = treeRow(source);
    row.change(changed);
    EXPECT_EQ(treeRow(source) == changed, row.looksTheSame);
  }
}

} // namespace
} // namespace tamberline
