#include "support/language_scope.h"
#include "support/sample_records.h"
#include "views/port_card.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tamberline {
namespace {

TreeNode usbNode(std::int64_t usedMa) {
  return TreeNode(TreeNode::USBDeviceEntry{USBDevice{.name = "Disk", .busPowerUsed = usedMa}});
}

TreeNode chargerNode(std::optional<std::int64_t> currentWatts) {
  return TreeNode(TreeNode::Charger{{.name = "Adapter", .currentWatts = currentWatts}});
}

/// The card of port 2.
PortCard cardOf(std::vector<TreeNode> children, const PortFacts& facts = {},
                const ThunderboltPort& port = {}) {
  ThunderboltBus bus = thunderboltBus(2);
  bus.port = port;
  return portCard(TreeNode(TreeNode::TBPort{bus}, std::move(children)), bus, facts);
}

PortFacts withLimit(std::int64_t limitMa) {
  return {.portCurrentLimitMa = {{2, limitMa}}};
}

MeasuredPower measured(const PortPowerOut& power) {
  return cardOf({}, {.portPowerOut = {{2, power}}}).power.measured.value();
}

/// One badge per line: its text, and its other properties.
std::string badgesText(const PortCard& card) {
  std::string text;
  for (const PortBadge& badge : card.header.badges) {
    text += badge.badge.text + " | " + badge.badge.icon.value_or("no icon") + " | " +
            std::string(badge.badge.color ? nameOf(*badge.badge.color) : "no color") + " | " +
            badge.badge.tooltip + "\n";
  }
  return text;
}

std::vector<PortBadge::Kind> badgeKinds(const PortCard& card) {
  std::vector<PortBadge::Kind> kinds;
  for (const PortBadge& badge : card.header.badges) {
    kinds.push_back(badge.kind);
  }
  return kinds;
}

using Kinds = std::vector<PortBadge::Kind>;

TEST(PortCard, NamesItsPort) {
  const ThunderboltBus bus = thunderboltBus(2);
  TreeNode node(TreeNode::TBPort{bus});
  node.id = "/port2";
  const PortCard card = portCard(node, bus, {});

  EXPECT_EQ(card.id, "/port2");
  EXPECT_EQ(card.header.title, "Thunderbolt Port 2");
}

TEST(PortCard, OfAnEmptyPortSaysThatNothingIsAttached) {
  const PortCard card = cardOf({});

  EXPECT_FALSE(card.header.inUse);
  EXPECT_EQ(card.header.dotTooltip, "Nothing attached");
  EXPECT_EQ(card.header.itemCount, std::nullopt);
  EXPECT_EQ(card.nothingAttached, "Nothing attached");
  EXPECT_EQ(badgesText(card), "");
  EXPECT_FALSE(card.power.measured.has_value());
  EXPECT_FALSE(card.power.ratedBar.has_value());
  EXPECT_TRUE(card.rows.empty());
}

TEST(PortCard, IsInUseWhenConnectedOrWhenAnythingIsAttached) {
  const ThunderboltPort connected = {"receptacle_connected", "", ""};

  EXPECT_TRUE(cardOf({}, {}, connected).header.inUse);
  EXPECT_EQ(cardOf({}, {}, connected).header.dotTooltip,
            "In use — a device is attached or powered");
  EXPECT_EQ(cardOf({}, {}, connected).nothingAttached, "Nothing attached");
  EXPECT_TRUE(cardOf({TreeNode(TreeNode::ChargingOnly{})}).header.inUse);
}

TEST(PortCard, CountsWhatIsAttached) {
  EXPECT_EQ(cardOf({usbNode(0)}).header.itemCount, "1 item");
  EXPECT_EQ(cardOf({usbNode(0), chargerNode(1)}).header.itemCount, "2 items");
  EXPECT_EQ(cardOf({usbNode(0)}).header.itemCountTooltip,
            "Number of devices attached to this port");
  EXPECT_EQ(cardOf({usbNode(0)}).nothingAttached, std::nullopt);
}

TEST(PortCard, DoesNotCountABusWithoutDevices) {
  EXPECT_EQ(cardOf({TreeNode(TreeNode::USBBusEntry{addOnBus("USB31Bus", {})})}).header.itemCount,
            std::nullopt);
}

TEST(PortCard, ShowsItsChildrenAsRowsOfDepthZero) {
  const PortCard card = cardOf({usbNode(0), usbNode(0)});

  ASSERT_EQ(card.rows.size(), 2U);
  EXPECT_EQ(card.rows[0].depth, 0);
  EXPECT_FALSE(card.rows[0].isLast);
  EXPECT_TRUE(card.rows[1].isLast);
}

/// The extra text in the title's tooltip for port number 2 with these sockets and this link.
std::optional<std::string> titleNoteOf(const std::vector<std::optional<std::int64_t>>& numbers,
                                       const std::optional<TrueLink>& link = {}) {
  ThunderboltBus bus = thunderboltBus(2);
  for (const std::optional<std::int64_t>& number : numbers) {
    bus.receptacles.push_back({number, {}});
  }
  bus.port.link = link;
  return portCard(TreeNode(TreeNode::TBPort{bus}), bus, {}).header.titleNote;
}

TEST(PortTitle, ListsTheSocketsIfTheNumbersDiffer) {
  EXPECT_EQ(titleNoteOf({3, 4}), "Receptacles 3, 4");
  EXPECT_EQ(titleNoteOf({2, std::nullopt, 1}), "Receptacles 2, 1");
  EXPECT_EQ(titleNoteOf({3}), "Receptacle 3");
  EXPECT_EQ(titleNoteOf({2}), std::nullopt);
  EXPECT_EQ(titleNoteOf({std::nullopt}), std::nullopt);
  EXPECT_EQ(titleNoteOf({}), std::nullopt);
}

TEST(PortTitle, ShowsTheLinksActualSpeed) {
  EXPECT_EQ(titleNoteOf({}, TrueLink{40, 40, 2, 2}), "Link each way: 40 Gb/s, 2 lanes");
  EXPECT_EQ(titleNoteOf({3, 4}, TrueLink{80, 80}), "Receptacles 3, 4 · Link each way: 80 Gb/s");
}

TEST(PortTitle, SpeaksTheLanguageOfTheRun) {
  const struct {
    AppLanguage::Case language;
    const char* one;
    const char* two;
  } rows[] = {
      {AppLanguage::de, "Buchse 3", "Buchsen 3, 4"},
      {AppLanguage::fr, "Prise 3", "Prises 3, 4"},
      {AppLanguage::it, "Presa 3", "Prese 3, 4"},
      {AppLanguage::es, "Conector 3", "Conectores 3, 4"},
  };
  for (const auto& row : rows) {
    const LanguageScope scope(row.language);
    EXPECT_EQ(titleNoteOf({3}), row.one);
    EXPECT_EQ(titleNoteOf({3, 4}), row.two);
  }
}

TEST(CapacityBadge, ShowsTheCurrentLimitAsWatts) {
  const PortCard card = cardOf({}, withLimit(3000));

  EXPECT_EQ(badgesText(card),
            "≤ 15 W | no icon | no color | Port power capacity: 3000 mA at 5 V\n");
  EXPECT_EQ(badgeKinds(card), Kinds{PortBadge::Kind::capacity});
}

TEST(CapacityBadge, HasADecimalOnlyWhereNeeded) {
  const struct {
    std::int64_t limitMa;
    const char* text;
  } rows[] = {
      {900, "≤ 4.5 W"}, {500, "≤ 2.5 W"}, {1000, "≤ 5 W"}, {2000, "≤ 10 W"}, {4000, "≤ 20 W"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.limitMa);
    EXPECT_EQ(cardOf({}, withLimit(row.limitMa)).header.badges.at(0).badge.text, row.text);
  }
}

TEST(PortBadges, SayWhatTheirFiguresMean) {
  const PortCard idle = cardOf({}, withLimit(3000));
  EXPECT_EQ(idle.header.badges.at(0).spoken, "supplies up to 15 W");
  const PortCard charging = cardOf({chargerNode(58)});
  EXPECT_EQ(charging.header.badges.at(0).spoken, "the adapter delivers 58W");
}

TEST(CapacityBadge, IsLeftOutForALimitOfZeroOrOfAnotherPort) {
  EXPECT_EQ(badgesText(cardOf({}, withLimit(0))), "");
  EXPECT_EQ(badgesText(cardOf({}, {.portCurrentLimitMa = {{1, 3000}, {3, 3000}}})), "");
}

TEST(ChargerBadge, ShowsWhatTheAdapterDelivers) {
  const PortCard card = cardOf({chargerNode(58)});

  EXPECT_EQ(badgesText(card), "58W | bolt.fill | green | Power the charger is currently delivering "
                              "to the Mac\n");
  EXPECT_EQ(badgeKinds(card), Kinds{PortBadge::Kind::charger});
}

TEST(ChargerBadge, ComesFromTheFirstAdapterOnThePortItself) {
  EXPECT_EQ(cardOf({usbNode(0), chargerNode(58), chargerNode(12)}).header.badges.at(0).badge.text,
            "58W");
  EXPECT_EQ(badgesText(cardOf({chargerNode(std::nullopt), chargerNode(12)})), "");
  EXPECT_EQ(badgesText(cardOf({TreeNode(TreeNode::TBDevice{}, {chargerNode(58)})})), "");
}

TEST(ControllerBadges, ShowVideoAndCable) {
  const PortFacts facts = {.hpmPorts = {{.portNumber = 2, .hasVideo = true, .activeCable = true}}};
  const PortCard card = cardOf({}, facts);

  EXPECT_EQ(badgesText(card), "video | no icon | purple | DisplayPort video is being carried over "
                              "this USB-C connection\n"
                              "active cable | no icon | secondary | Cable type reported by the "
                              "port controller\n");
  EXPECT_EQ(badgeKinds(card), (Kinds{PortBadge::Kind::video, PortBadge::Kind::cable}));
}

TEST(ControllerBadges, ShowOnlyWhatTheControllerReports) {
  const auto badges = [](const HPMPort& port) {
    return badgesText(cardOf({}, {.hpmPorts = {port}}));
  };

  EXPECT_EQ(badges({.portNumber = 2}), "");
  EXPECT_EQ(badges({.portNumber = 2, .opticalCable = true}),
            "optical cable | no icon | secondary | Cable type reported by the port controller\n");
  EXPECT_EQ(badges({.portNumber = 3, .hasVideo = true, .activeCable = true}), "");
}

TEST(ControllerBadges, AreReplacedByAnAdapterThatDelivers) {
  const PortFacts facts = {.hpmPorts = {{.portNumber = 2, .hasVideo = true, .activeCable = true}}};

  EXPECT_EQ(badgeKinds(cardOf({chargerNode(58)}, facts)), Kinds{PortBadge::Kind::charger});
  EXPECT_EQ(badgeKinds(cardOf({chargerNode(std::nullopt)}, facts)),
            (Kinds{PortBadge::Kind::video, PortBadge::Kind::cable}));
}

TEST(ControllerBadges, ComeFromTheFirstUsbCControllerOfTheNumber) {
  const HPMPort magSafe = {.portNumber = 2, .isMagSafe = true, .opticalCable = true};
  const HPMPort first = {.portNumber = 2, .activeCable = true};
  const HPMPort second = {.portNumber = 2, .hasVideo = true};

  EXPECT_EQ(badgeKinds(cardOf({}, {.hpmPorts = {magSafe, first, second}})),
            Kinds{PortBadge::Kind::cable});
  EXPECT_EQ(cardOf({}, {.hpmPorts = {magSafe, first}}).header.badges.at(0).badge.text,
            "active cable");
  EXPECT_EQ(badgesText(cardOf({}, {.hpmPorts = {magSafe}})), "");
}

TEST(SpeedBadge, ShowsWhatTheLinkCanDo) {
  const PortCard card = cardOf({}, {}, {"", "Up to 40 Gb/s", "0x2"});

  EXPECT_EQ(badgesText(card), "40 Gb/s ×2 | no icon | accent | Maximum Thunderbolt/USB link speed "
                              "this port supports\n");
  EXPECT_EQ(badgeKinds(card), Kinds{PortBadge::Kind::speed});
}

TEST(SpeedBadge, IsLeftOutWithoutAKnownSpeed) {
  EXPECT_EQ(badgesText(cardOf({}, {}, {"receptacle_connected", "unknown", "0x2"})), "");
}

TEST(Badges, HaveAFixedOrder) {
  PortFacts facts = withLimit(3000);
  facts.hpmPorts = {{.portNumber = 2, .hasVideo = true, .opticalCable = true}};
  const ThunderboltPort port = {"", "Up to 20 Gb/s", ""};

  EXPECT_EQ(badgeKinds(cardOf({}, facts, port)),
            (Kinds{PortBadge::Kind::capacity, PortBadge::Kind::video, PortBadge::Kind::cable,
                   PortBadge::Kind::speed}));
  EXPECT_EQ(badgeKinds(cardOf({chargerNode(58)}, facts, port)),
            (Kinds{PortBadge::Kind::capacity, PortBadge::Kind::charger, PortBadge::Kind::speed}));
}

TEST(MeasuredPower, ShowsDrawAllocationVoltageAndCurrent) {
  const MeasuredPower power =
      measured({.usedWatts = 3.75, .allocatedWatts = 15, .volts = 5.04, .amps = 0.744});

  EXPECT_EQ(power.used, "3.8 W used");
  EXPECT_EQ(power.allocated, "15.0 W allocated");
  EXPECT_EQ(power.voltageCurrent, "5.0 V · 0.74 A");
  EXPECT_EQ(power.bar.usedFraction, 0.25);
  EXPECT_EQ(power.bar.cableFraction, 0);
  EXPECT_EQ(power.tooltip, "Live measured power the Mac is delivering on this port. \"allocated\" "
                           "is the negotiated USB-PD contract.");
}

TEST(MeasuredPower, DrawsAnEmptyBarWithoutAnAllocation) {
  for (const double allocatedWatts : {0.0, -15.0}) {
    SCOPED_TRACE(allocatedWatts);
    const MeasuredPower power =
        measured({.usedWatts = 3.5, .allocatedWatts = allocatedWatts, .volts = 5, .amps = 0.7});

    EXPECT_EQ(power.used, "3.5 W used");
    EXPECT_EQ(power.allocated, std::nullopt);
    EXPECT_EQ(power.voltageCurrent, "5.0 V · 0.70 A");
    EXPECT_EQ(power.bar.usedFraction, 0);
  }
}

TEST(MeasuredPower, DrawsAtMostAFullBar) {
  EXPECT_EQ(measured({.usedWatts = 20, .allocatedWatts = 15}).bar.usedFraction, 1);
}

TEST(MeasuredPower, IsThatOfThePortsOwnNumber) {
  EXPECT_FALSE(cardOf({}, {.portPowerOut = {{1, {}}, {3, {}}}}).power.measured.has_value());
}

TEST(PortPowerBar, AddsUpEverythingOnThePort) {
  const PortCard card = cardOf({usbNode(500), usbNode(250)}, withLimit(3000));

  ASSERT_TRUE(card.power.ratedBar.has_value());
  EXPECT_EQ(card.power.ratedBar->usedMa, 750);
  EXPECT_EQ(card.power.ratedBar->allocatedMa, 750);
  EXPECT_EQ(card.power.ratedBar->portMaxMa, 3000);
  EXPECT_EQ(card.power.ratedBar->used, "3.8 W port total");
  EXPECT_EQ(card.power.ratedBar->allocated, std::nullopt);
  EXPECT_EQ(card.power.ratedBar->portMax, "15.0 W port max");
  EXPECT_EQ(card.power.ratedBar->bar.usedFraction, 0.25);
  EXPECT_EQ(card.power.ratedBar->tooltip,
            "Total rated draw of everything on this port vs the port's "
            "power capacity");
}

TEST(PortPowerBar, NeedsADrawAndALimit) {
  EXPECT_FALSE(cardOf({usbNode(0)}, withLimit(3000)).power.ratedBar.has_value());
  EXPECT_TRUE(cardOf({usbNode(1)}, withLimit(3000)).power.ratedBar.has_value());
  EXPECT_FALSE(cardOf({usbNode(500)}).power.ratedBar.has_value());
  EXPECT_FALSE(
      cardOf({usbNode(500)}, {.portCurrentLimitMa = {{1, 3000}}}).power.ratedBar.has_value());
}

TEST(PortPowerBar, IsFullForALimitOfZero) {
  const PortCard card = cardOf({usbNode(500)}, withLimit(0));

  ASSERT_TRUE(card.power.ratedBar.has_value());
  EXPECT_EQ(card.power.ratedBar->bar.usedFraction, 1);
  EXPECT_EQ(card.power.ratedBar->portMax, "0.0 W port max");
}

TEST(PortCard, SpeaksTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);
  PortFacts facts = withLimit(3000);
  facts.portPowerOut = {{2, {.usedWatts = 1, .allocatedWatts = 2}}};
  const PortCard card = cardOf({usbNode(500), usbNode(0)}, facts);

  EXPECT_EQ(card.header.title, "Thunderbolt-Port 2");
  EXPECT_EQ(card.header.itemCount, "2 Geräte");
  EXPECT_EQ(card.header.badges.at(0).badge.tooltip, "Port-Leistungskapazität: 3000 mA bei 5 V");
  EXPECT_EQ(card.power.ratedBar->used, "2.5 W Port gesamt");
  EXPECT_EQ(card.power.measured->used, "1.0 W genutzt");
  EXPECT_EQ(card.power.measured->allocated, "2.0 W zugewiesen");
}

TEST(PortCard, ShowsWhatBothEndsAgreedOnWithoutCallingItMeasured) {
  const PortCard card =
      cardOf({}, {.hpmPorts = {{.portNumber = 2, .agreedPower = AgreedPower{20, 3.25}}}});
  ASSERT_TRUE(card.power.agreed);
  EXPECT_EQ(card.power.agreed->watts, "65.0 W agreed");
  EXPECT_EQ(card.power.agreed->voltageCurrent, "20.0 V · 3.25 A");
  EXPECT_EQ(card.power.agreed->tooltip, "What both ends of the cable agreed on: a voltage, and the "
                                        "max power at it. How much flows now is not measured.");
  EXPECT_FALSE(card.power.measured);
  EXPECT_TRUE(card.header.badges.empty());
  EXPECT_FALSE(cardOf({}, {.hpmPorts = {{.portNumber = 2}}}).power.agreed);
}

TEST(PortCard, HasTheDetailsOfItsController) {
  HPMPort port{.portNumber = 2};
  port.details.cable = CableRatings{.maxAmps = 3};
  EXPECT_EQ(cardOf({}, {.hpmPorts = {{.portNumber = 1}, port}}).header.details,
            (std::vector<DetailLine>{{"Cable", "3 A"}}));
  EXPECT_TRUE(cardOf({}, {.hpmPorts = {{.portNumber = 2}}}).header.details.empty());
  EXPECT_TRUE(cardOf({}, {}).header.details.empty());
}

TEST(PortCard, ShowsAPartnerThatIsNotADevice) {
  const struct {
    HPMPort port;
    const char* expected;
  } table[] = {
      {{.partner = PortPartner::audio},
       "headphones | Analogue headphones | Headphones or their adapter — analogue sound, no data"},
      {{.partner = PortPartner::debug},
       "cable.connector | Debug accessory | An accessory for testing the computer"},
      {{.partner = PortPartner::video},
       "display | Video adapter | Can carry a picture, but does not now"},
      {{.hasVideo = true, .partner = PortPartner::video},
       "display | Video adapter | Carries a picture"},
      {{.partner = PortPartner::source},
       "powerplug.fill | Another power adapter | Offers power, but the computer takes it from "
       "elsewhere"},
      {{.partner = PortPartner::unknown},
       "cable.connector | Something is attached | The computer does not tell what. A device with "
       "data is listed under its USB bus."},
  };
  for (const auto& row : table) {
    HPMPort port = row.port;
    port.portNumber = 2;
    const PortCard card = cardOf({}, {.hpmPorts = {port}});
    ASSERT_TRUE(card.partner) << row.expected;
    EXPECT_EQ(card.partner->icon + " | " + card.partner->title + " | " + card.partner->detail,
              row.expected);
    EXPECT_EQ(card.nothingAttached, std::nullopt);
  }
}

TEST(PortCard, OmitsAPartnerThatIsInTheTree) {
  const PortFacts facts{.hpmPorts = {{.portNumber = 2, .partner = PortPartner::unknown}}};
  EXPECT_FALSE(cardOf({usbNode(100)}, facts).partner);
  const PortFacts elsewhere{.hpmPorts = {{.portNumber = 1, .partner = PortPartner::unknown}}};
  EXPECT_FALSE(cardOf({}, elsewhere).partner);
  EXPECT_EQ(cardOf({}, elsewhere).nothingAttached, "Nothing attached");
}

} // namespace
} // namespace tamberline
