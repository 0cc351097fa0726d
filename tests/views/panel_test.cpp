#include "i18n/loc.h"
#include "support/language_scope.h"
#include "support/sample_records.h"
#include "views/panel.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

TreeNode portNode(std::int64_t number) {
  return TreeNode(TreeNode::TBPort{thunderboltBus(number)});
}

TreeNode drawing(std::int64_t usedMa) {
  return TreeNode(TreeNode::USBDeviceEntry{USBDevice{.name = "Disk", .busPowerUsed = usedMa}});
}

TreeNode chargerNode(const ChargerInfo& charger) {
  return TreeNode(TreeNode::Charger{charger});
}

Panel panelOf(std::vector<TreeNode> tree) {
  return describePanel({.portTree = std::move(tree)});
}

template <typename ExpectedCard>
ExpectedCard onlyCardOf(const TreeNode& node) {
  return std::get<ExpectedCard>(panelOf({node}).cards.at(0));
}

TEST(Panel, ShowsAMessageIfItHasNoCards) {
  const std::vector<TreeNode> tree = {portNode(1)};
  const struct {
    const char* description;
    PanelInputs inputs;
    Panel::State state;
    std::optional<std::string> message;
    std::string_view hint;
  } rows[] = {
      {"nothing found", {}, Panel::State::Empty, "No ports detected", Loc::hintNoPorts()},
      {"first scan",
       {.isScanning = true},
       Panel::State::Scanning,
       "Scanning ports…",
       Loc::hintFirstScan()},
      {"failed", {.errorMessage = "broken"}, Panel::State::Error, "broken", Loc::hintScanFailed()},
      {"scanning after a failure",
       {.isScanning = true, .errorMessage = "broken"},
       Panel::State::Error,
       "broken",
       Loc::hintScanFailed()},
      {"failed with a tree",
       {.portTree = tree, .errorMessage = "broken"},
       Panel::State::Error,
       "broken",
       Loc::hintScanFailed()},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const Panel panel = describePanel(row.inputs);
    EXPECT_EQ(panel.state, row.state);
    EXPECT_EQ(panel.message, row.message);
    EXPECT_EQ(panel.hint, row.hint);
    EXPECT_TRUE(panel.cards.empty());
  }
}

TEST(Panel, KeepsItsCardsDuringARescan) {
  const Panel panel = describePanel({.portTree = {portNode(1)}, .isScanning = true});

  EXPECT_EQ(panel.state, Panel::State::Cards);
  EXPECT_EQ(panel.message, std::nullopt);
  EXPECT_EQ(panel.cards.size(), 1U);
}

TEST(Panel, SaysWhyDevicesAreListedByBus) {
  const TreeNode bus(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})});
  EXPECT_EQ(panelOf({bus}).hint, Loc::hintPortsUnknown());
  EXPECT_EQ(panelOf({bus, bus}).hint, Loc::hintPortsUnknown());
  EXPECT_EQ(panelOf({portNode(1), bus}).hint, std::nullopt);
  EXPECT_EQ(panelOf({portNode(1)}).hint, std::nullopt);
}

TEST(Panel, HasOneCardPerTopLevelNodeInOrder) {
  const Panel panel = panelOf({chargerNode({}), portNode(1), portNode(2),
                               TreeNode(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})})});

  ASSERT_EQ(panel.cards.size(), 4U);
  EXPECT_TRUE(std::holds_alternative<ChargerCard>(panel.cards[0]));
  EXPECT_EQ(std::get<PortCard>(panel.cards[1]).header.title, "Thunderbolt Port 1");
  EXPECT_EQ(std::get<PortCard>(panel.cards[2]).header.title, "Thunderbolt Port 2");
  EXPECT_TRUE(std::holds_alternative<StandaloneUSBCard>(panel.cards[3]));
}

TEST(Panel, PassesItsFactsToThePortCards) {
  const Panel panel =
      describePanel({.portTree = {portNode(1)}, .portFacts = {.portCurrentLimitMa = {{1, 3000}}}});

  EXPECT_EQ(std::get<PortCard>(panel.cards.at(0)).header.badges.at(0).badge.text, "≤ 15 W");
}

TEST(BusCard, ShowsHeaderAndDevices) {
  TreeNode node(TreeNode::USBBusEntry{addOnBus("USB30Bus", {})}, {drawing(500), drawing(400)});
  node.id = "/bus";
  const auto card = onlyCardOf<StandaloneUSBCard>(node);

  EXPECT_EQ(card.id, "/bus");
  EXPECT_EQ(card.header.name, "USB 3.0 Bus");
  EXPECT_EQ(card.header.ratedDraw, "4.5W rated");
  ASSERT_EQ(card.rows.size(), 2U);
  EXPECT_EQ(card.rows[0].depth, 0);
  EXPECT_TRUE(card.rows[1].isLast);
  EXPECT_EQ(card.nothingAttached, std::nullopt);
}

TEST(BusCard, SaysThatNothingIsAttached) {
  const auto card =
      onlyCardOf<StandaloneUSBCard>(TreeNode(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})}));

  EXPECT_EQ(card.nothingAttached, "Nothing attached");
}

TEST(ChargerCard, ShowsTheAdapterAndItsPort) {
  TreeNode node = chargerNode({.name = "Adapter", .ratedWatts = 140});
  node.id = "/charger";
  const auto card = onlyCardOf<ChargerCard>(node);

  EXPECT_EQ(card.id, "/charger");
  EXPECT_EQ(card.header.icon, "powerplug.fill");
  EXPECT_EQ(card.header.title, "Power Adapter");
  EXPECT_EQ(card.header.port, "MagSafe");
  EXPECT_EQ(card.header.portTooltip, "Physical port the power adapter is plugged into");
  EXPECT_EQ(card.row.name, "Adapter");
  EXPECT_EQ(card.row.rated, "140 W rated");
}

TEST(ChargerCard, ShowsTheBoltWhileCharging) {
  EXPECT_EQ(onlyCardOf<ChargerCard>(chargerNode({.isCharging = true})).header.icon, "bolt.fill");
}

TEST(ChargerCard, NamesAUSBCPort) {
  EXPECT_EQ(onlyCardOf<ChargerCard>(chargerNode({.connectsViaUSBC = true})).header.port,
            "USB-C / Thunderbolt");
}

TEST(ChargerCard, NamesTheSocketOfAnAdapterThatIsOnNoPort) {
  const auto portOf = [](const ChargerInfo& charger) {
    return std::get<ChargerCard>(
               describePanel({.portTree = {TreeNode(TreeNode::Charger{charger})}}).cards.at(0))
        .header.port;
  };
  EXPECT_EQ(portOf({.isOnNoKnownPort = true}), "Power socket");
  EXPECT_EQ(portOf({.connectsViaUSBC = true, .isOnNoKnownPort = true}), "USB-C / Thunderbolt");
}

TEST(Panel, SpeaksTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);

  EXPECT_EQ(describePanel({}).message, "Keine Ports erkannt");
  EXPECT_EQ(describePanel({.isScanning = true}).message, "Ports werden gescannt…");
  EXPECT_EQ(onlyCardOf<ChargerCard>(chargerNode({})).header.title, "Netzteil");
}

} // namespace
} // namespace tamberline
