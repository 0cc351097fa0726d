#include "inspect/panel_text.h"
#include "support/language_scope.h"
#include "support/sample_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <utility>

namespace tamberline {
namespace {

TreeNode usbNode(const USBDevice& device, std::vector<TreeNode> children = {}) {
  return TreeNode(TreeNode::USBDeviceEntry{device, 10.0, 900}, std::move(children));
}

TreeNode busNode(const std::string& rawName, std::vector<TreeNode> children) {
  return TreeNode(TreeNode::USBBusEntry{addOnBus(rawName, {})}, std::move(children));
}

TreeNode portNode(std::int64_t number, std::vector<TreeNode> children,
                  const ThunderboltPort& port = {}) {
  ThunderboltBus bus = thunderboltBus(number);
  bus.port = port;
  return TreeNode(TreeNode::TBPort{bus}, std::move(children));
}

std::string textOf(std::vector<TreeNode> tree) {
  return panelText(describePanel({.portTree = std::move(tree)}), /*useColors=*/false);
}

/// A port with a dock, behind which a hub draws power.
TreeNode dockPort() {
  const ThunderboltDevice dock = {.name = "Harbour Dock",
                                  .mode = "usb4_gen3x2",
                                  .upstreamSpeed = "20 Gb/s",
                                  .upstreamWidth = "0x2"};
  const USBDevice disk = {.name = "Quarry SSD",
                          .speed = "super_speed",
                          .busPower = 900,
                          .busPowerUsed = 450,
                          .volumes = {{"Data", "/Volumes/Data"}, {"Photos", "/Volumes/Photos"}}};
  const USBDevice hub = {.name = "hub_device", .speed = "super_speed_plus", .busPowerUsed = 100};
  const TreeNode bus = busNode("USB31Bus", {usbNode(hub, {usbNode(disk)})});
  return portNode(1, {TreeNode(TreeNode::TBDevice{dock}, {bus})},
                  {"receptacle_connected", "Up to 40 Gb/s", "0x2"});
}

Panel deskPanel() {
  const TreeNode adapter(TreeNode::Charger{
      {.name = "96W Adapter", .ratedWatts = 96, .isCharging = true, .connectsViaUSBC = true}});
  return describePanel(
      {.portTree = {dockPort(), portNode(2, {adapter, usbNode(usbDevice("Keys"))}),
                    portNode(3, {TreeNode(TreeNode::ChargingOnly{})}), portNode(4, {})},
       .portFacts = {
           .hpmPorts = {{.portNumber = 1, .hasVideo = true, .activeCable = true}},
           .portPowerOut = {{1,
                             {.usedWatts = 3.75, .allocatedWatts = 15, .volts = 5, .amps = 0.75}}},
           .portCurrentLimitMa = {{1, 3000}},
       }});
}

TEST(PanelText, ShowsCardsAndRowsAsATree) {
  EXPECT_EQ(panelText(deskPanel(), false),
            R"(● Thunderbolt Port 1  3 items  ≤ 15 W port max  [video]  [active cable]  [40 Gb/s ×2]
│  █████░░░░░░░░░░░░░░░  3.8 W used · 15.0 W allocated  5.0 V · 0.75 A
│  ████░░░░░░░░░░░░░░░░  2.8 W port total  15.0 W port max
└─ Harbour Dock  [USB4 40G]  2.8W
   │  ████████████████████  20 Gb/s ×2 = 40 Gb/s  at port max ✓
   └─ USB 3.1 Bus  2.8W rated
      └─ USB Hub  10 Gb/s  2.8W total
         │  ████████████████████  USB 3.2 Gen 2  at port max ✓
         │  ██░░░░░░░░░░░░░░░░░░  0.5 W own draw (rated)
         └─ Quarry SSD  5 Gb/s
               ██████████░░░░░░░░░░  USB 3.2 Gen 1  10 Gb/s port max
               ↑ Port supports up to 10 Gb/s — device or cable is the bottleneck
               ██████████▒▒▒▒▒▒▒▒▒▒  2.2 W rated · 4.5 W allocated  4.5 W port max
               Volume  Data  /Volumes/Data
               Volume  Photos  /Volumes/Photos

● Thunderbolt Port 2  2 items
├─ ⚡ 96W Adapter  ▲ 96 W rated
└─ Keys  5 Gb/s
      ██████████░░░░░░░░░░  USB 3.2 Gen 1  10 Gb/s port max
      ↑ Port supports up to 10 Gb/s — device or cable is the bottleneck

● Thunderbolt Port 3  1 item
└─ ⚡ Charging only  [no data]
      Powered, but no data connection — unlock or switch the device to data mode

○ Thunderbolt Port 4
   Nothing attached
)");
}

TEST(PanelText, ShowsAdaptersAndBusesThatStandAlone) {
  const TreeNode adapter(TreeNode::Charger{{.name = "140W Adapter", .ratedWatts = 140}});

  EXPECT_EQ(
      textOf({adapter, busNode("USB20Bus", {usbNode({.name = "Keys", .busPowerUsed = 100})})}),
      R"(Power Adapter  MagSafe
└─ ⚡ 140W Adapter  140 W rated

USB 2.0 Bus  0.5W rated
└─ Keys  —
      ██░░░░░░░░░░░░░░░░░░  0.5 W rated  4.5 W port max
)");
}

TEST(PanelText, ShowsALinksActualSpeedIfTheBarDoesNot) {
  const auto textOfDevice = [](const ThunderboltDevice& device) {
    return textOf({portNode(1, {TreeNode(TreeNode::TBDevice{device})})});
  };
  EXPECT_EQ(textOfDevice({.name = "Dock",
                          .upstreamSpeed = "Up to 40 Gb/s x1",
                          .upstreamWidth = "0x2",
                          .link = TrueLink{40, 40, 2, 2}}),
            R"(● Thunderbolt Port 1  1 item
└─ Dock
      ████████████████████  40 Gb/s ×2 = 80 Gb/s  at port max ✓
      Link each way: 40 Gb/s, 2 lanes
)");
  EXPECT_EQ(textOfDevice({.name = "Dock", .upstreamSpeed = "80 Gb/s", .link = TrueLink{80, 80}}),
            R"(● Thunderbolt Port 1  1 item
└─ Dock
      Link each way: 80 Gb/s
)");
  EXPECT_EQ(textOfDevice({.name = "Dock",
                          .upstreamSpeed = "20 Gb/s",
                          .upstreamWidth = "0x2",
                          .link = TrueLink{40, 40, 2, 2}}),
            R"(● Thunderbolt Port 1  1 item
└─ Dock
      ████████████████████  20 Gb/s ×2 = 40 Gb/s  at port max ✓
)");
}

TEST(PanelText, ShowsTheDetailsOfAPortBelowItsHeader) {
  HPMPort port{.portNumber = 1};
  port.details = {.offers = {{.minVolts = 20, .maxVolts = 20, .amps = 3, .isAgreed = true}},
                  .cable = CableRatings{.maxAmps = 3, .gbpsOfLane = 0.48}};
  EXPECT_EQ(
      panelText(describePanel({.portTree = {portNode(1, {})}, .portFacts = {.hpmPorts = {port}}}),
                false),
      R"(○ Thunderbolt Port 1
   Offers: 20 V, 3 A (agreed)
   Cable: 3 A, USB 2
   Nothing attached
)");
}

TEST(PanelText, SaysThatNothingIsAttachedToABus) {
  EXPECT_EQ(textOf({busNode("USB31Bus", {})}), "USB 3.1 Bus\n   Nothing attached\n");
}

TEST(PanelText, ShowsAMessageIfThereAreNoCards) {
  EXPECT_EQ(panelText(describePanel({}), false), "No ports detected\n");
  EXPECT_EQ(panelText(describePanel({.errorMessage = "Could not parse"}), false),
            "Could not parse\n");
  EXPECT_EQ(panelText(describePanel({.isScanning = true}), true),
            "\x1b[2mScanning ports…\x1b[0m\n");
  EXPECT_EQ(panelText(describePanel({.errorMessage = "Could not parse"}), true),
            "\x1b[38;5;208mCould not parse\x1b[0m\n");
}

TEST(PanelText, ShowsASliverOfATinyDraw) {
  EXPECT_EQ(textOf({busNode("USB31Bus", {usbNode({.name = "Keys", .busPowerUsed = 1})})}),
            R"(USB 3.1 Bus  0.0W rated
└─ Keys  —
      █░░░░░░░░░░░░░░░░░░░  0.0 W rated  4.5 W port max
)");
}

TEST(PanelText, SpeaksTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);

  EXPECT_EQ(textOf({portNode(1, {}), portNode(2, {TreeNode(TreeNode::ChargingOnly{})})}),
            R"(○ Thunderbolt-Port 1
   Nichts angeschlossen

● Thunderbolt-Port 2  1 Gerät
└─ ⚡ Nur Laden  [keine Daten]
      Mit Strom versorgt, aber keine Datenverbindung — Gerät entsperren oder in den Datenmodus schalten
)");
}

TEST(PanelTextColors, AddNothingButStyles) {
  const std::string colored = panelText(deskPanel(), true);

  EXPECT_EQ(std::regex_replace(colored, std::regex("\x1b\\[[0-9;]*m"), ""),
            panelText(deskPanel(), false));
  EXPECT_NE(colored, panelText(deskPanel(), false));
}

TEST(PanelTextColors, CloseEachStyleBeforeTheNextAndBeforeTheLineEnds) {
  const std::string colored = panelText(deskPanel(), true);
  const std::regex unclosedLine("\x1b\\[[1-9][0-9;]*m[^\x1b\n]*(\n|\x1b\\[[1-9])");

  EXPECT_FALSE(std::regex_search(colored, unclosedLine));
}

TEST(PanelTextColors, AreAbsentUnlessAskedFor) {
  EXPECT_EQ(panelText(deskPanel(), false).find('\x1b'), std::string::npos);
}

/// A panel in which every text from outside is `text`.
std::string panelFullOf(const std::string& text) {
  const USBDevice disk = {.name = text, .speed = text, .volumes = {{text, text}}};
  const TreeNode dock(TreeNode::TBDevice{{.name = text,
                                          .vendorName = text,
                                          .mode = text,
                                          .uid = text,
                                          .upstreamSpeed = text,
                                          .upstreamWidth = text}},
                      {busNode(text, {usbNode(disk)})});
  const TreeNode adapter(TreeNode::Charger{{.name = text, .ratedWatts = 96, .portLabel = text}});
  return textOf({adapter, portNode(1, {dock, adapter}, {text, text, text})});
}

TEST(HostileTexts, AreShownInPlaceOfNames) {
  EXPECT_EQ(panelFullOf("x"), R"(Power Adapter  MagSafe
└─ ⚡ x  96 W rated

● Thunderbolt Port 1  3 items
├─ x  [X]
│  └─ USB Bus
│     └─ x  x
│           Volume  x  x
└─ ⚡ x  96 W rated
)");
}

TEST(HostileTexts, AreMadeHarmlessForTheTerminal) {
  const struct {
    const char* description;
    std::string text;
    std::string shown;
    std::string shownAsMode;
  } rows[] = {
      {"markup", "<b>x</b>", "<b>x</b>", "<b>x</b>"},
      {"escape sequence", "\x1b[31mx", "\uFFFD[31mx", "\uFFFD[31mx"},
      {"window title", "\x1b]0;x\a", "\uFFFD]0;x\uFFFD", "\uFFFD]0;x\uFFFD"},
      {"one-character escape sequence", "\u009B31mx", "\uFFFD31mx", "\uFFFD31mx"},
      {"line break", "x\ny", "x\uFFFDy", "X\uFFFDy"},
      {"direction override", "\u202Ex\u2066", "\uFFFDx\uFFFD", "\uFFFDx\uFFFD"},
      {"broken bytes", "x\xFF\xC3", "x\uFFFD\uFFFD", "X\uFFFD\uFFFD"},
      {"invisible characters", "x\u200B\uFEFF\U000E0041", "x\uFFFD\uFFFD\uFFFD",
       "X\uFFFD\uFFFD\uFFFD"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const std::string& name = row.shown;
    EXPECT_EQ(panelFullOf(row.text), "Power Adapter  MagSafe\n"
                                     "└─ ⚡ " +
                                         name +
                                         "  96 W rated\n"
                                         "\n"
                                         "● Thunderbolt Port 1  3 items\n"
                                         "├─ " +
                                         name + "  [" + row.shownAsMode +
                                         "]\n"
                                         "│  └─ USB Bus\n"
                                         "│     └─ " +
                                         name + "  " + name +
                                         "\n"
                                         "│           Volume  " +
                                         name + "  " + name +
                                         "\n"
                                         "└─ ⚡ " +
                                         name + "  96 W rated\n");
  }
}

TEST(HostileTexts, KeepTheirPlaceWhenTheyAreInvisible) {
  EXPECT_EQ(panelFullOf("  "), R"(Power Adapter  MagSafe
└─ ⚡ —  96 W rated

● Thunderbolt Port 1  3 items
├─ —  [—]
│  └─ USB Bus
│     └─ —
│           Volume  —
└─ ⚡ —  96 W rated
)");
}

TEST(HostileTexts, AreShortenedIfTheyAreLong) {
  const std::string text = panelFullOf(std::string(100'000, 'x'));
  const std::string kept(59, 'x');
  const auto ellipses = [&](std::size_t start, std::size_t count) {
    for (std::size_t found = text.find("…", start); found != std::string::npos;
         found = text.find("…", found + 1)) {
      ++count;
    }
    return count;
  };

  EXPECT_EQ(ellipses(0, 0), 8U);
  EXPECT_EQ(text.find(std::string(61, 'x')), std::string::npos);
  EXPECT_NE(text.find("x…" + kept + "  96 W rated"), std::string::npos);
  EXPECT_LT(text.size(), 1500U);
}

TEST(HostileTexts, AddNoEscapeSequencesToColours) {
  const TreeNode disk = usbNode({.name = "\x1b[2Jx", .speed = "\x1b[2Jy"});
  const std::string text = panelText(describePanel({.portTree = {portNode(1, {disk})}}), true);

  EXPECT_EQ(text.find("\x1b[2J"), std::string::npos);
  EXPECT_NE(text.find("\uFFFD[2Jx"), std::string::npos);
  EXPECT_NE(text.find("\uFFFD[2Jy"), std::string::npos);
}

} // namespace
} // namespace tamberline
