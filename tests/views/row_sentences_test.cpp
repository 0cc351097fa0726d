#include "panel_row_text.h"
#include "support/language_scope.h"
#include "views/row_sentences.h"

#include <gtest/gtest.h>

#include <utility>

namespace tamberline {
namespace {

/// The sentences of all rows of one card with its tree fully open, one per line.
std::string sentencesOf(const Card& card) {
  const Panel panel{.state = Panel::State::Cards, .cards = {card}};
  SampleStates states;
  states.overrides = {"port", "row"};
  std::string text;
  for (const PanelRow& row : states.rowsOf(panel)) {
    text += rowSentence(row) + "\n";
  }
  return text;
}

/// The sentence of the tree's first row.
std::string sentenceOf(ExpandableRow::Content content, const SampleStates& states = {}) {
  const Panel panel{.cards = {StandaloneUSBCard{
                        .id = "bus", .rows = {{.id = "row", .content = std::move(content)}}}}};
  return rowSentence(states.rowsOf(panel).at(1));
}

TEST(RowSentence, NamesAnAdapterThatHasNoName) {
  EXPECT_EQ(sentenceOf(ChargerRow{" ", "70 W rated", true}), "Power Adapter, charging, 70 W rated");
}

TEST(RowSentence, SaysThatAnAdapterDoesNotCharge) {
  EXPECT_EQ(sentenceOf(ChargerRow{"70W Adapter", "70 W rated", false}),
            "70W Adapter, not charging, 70 W rated");
}

/// The sentences of all kinds, in the language of the run.
std::string everything() {
  const PortCard port{
      .id = "port",
      .header = {.dotTooltip = "In use",
                 .title = "Thunderbolt Port 1",
                 .itemCount = "3 items",
                 .badges = {{PortBadge::Kind::capacity, {.text = "≤ 15 W"}, "supplies up to 15 W"},
                            {PortBadge::Kind::cable, {.text = "active cable"}, ""}}},
      .power = {.measured = MeasuredPower{.used = "3.8 W used",
                                          .allocated = "15.0 W allocated",
                                          .voltageCurrent = "5.0 V · 0.75 A"},
                .ratedBar = powerBarRow(
                    {.usedMa = 500, .allocatedMa = 900, .portMaxMa = 3000, .usedLabel = "rated"})},
      .rows = {{.id = "row",
                .content = TBDeviceRow{.name = "Harbour Dock",
                                       .modeBadge = Badge{.text = "USB4 40G"},
                                       .ratedDraw = "4.5W",
                                       .speedBar = speedBarRow(20, 40, "20 Gb/s × 1", "40 Gb/s")},
                .children = {{.id = "bus",
                              .content = USBBusHeaderRow{"USB 3.1 Bus", "1W rated"}}}}},
      .nothingAttached = "Nothing attached",
  };
  const StandaloneUSBCard bus{
      .id = "port", .header = {"USB 2.0 Bus", "1.0W rated"}, .nothingAttached = "No devices"};
  const ChargerCard charger{.id = "port",
                            .header = {.title = "Power Adapter", .port = "MagSafe"},
                            .row = {"96W Adapter", "96 W rated", true}};
  return sentencesOf(port) + sentencesOf(bus) + sentencesOf(charger);
}

TEST(RowSentences, SayEverythingThatARowShows) {
  EXPECT_EQ(everything(),
            "Thunderbolt Port 1, 3 items, supplies up to 15 W, active cable, expanded\n"
            "3.8 W used, 15.0 W allocated, 5.0 V · 0.75 A, 2.5 W rated · 4.5 W allocated, "
            "15.0 W port max\n"
            "Harbour Dock, USB4 40G, 20 Gb/s × 1, 40 Gb/s, 4.5W, expanded\n"
            "USB 3.1 Bus, 1W rated\n"
            "Nothing attached\n"
            "USB 2.0 Bus, 1.0W rated\n"
            "No devices\n"
            "Power Adapter, MagSafe, 96W Adapter, charging, 96 W rated\n");
}

TEST(RowSentences, SpeakTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);
  EXPECT_EQ(everything(), "Thunderbolt Port 1, 3 items, supplies up to 15 W, active cable, "
                          "aufgeklappt\n"
                          "3.8 W used, 15.0 W allocated, 5.0 V · 0.75 A, 2.5 W rated · 4.5 W "
                          "zugewiesen, 15.0 W Port-Maximum\n"
                          "Harbour Dock, USB4 40G, 20 Gb/s × 1, 40 Gb/s, 4.5W, aufgeklappt\n"
                          "USB 3.1 Bus, 1W rated\n"
                          "Nothing attached\n"
                          "USB 2.0 Bus, 1.0W rated\n"
                          "No devices\n"
                          "Power Adapter, MagSafe, 96W Adapter, lädt, 96 W rated\n");
}

TEST(RowSentences, SayWhetherTheRowIsOpen) {
  PanelRow row{.kind = PanelRow::Kind::UsbBus, .content = USBBusHeaderRow{.name = "Bus"}};
  EXPECT_EQ(rowSentence(row), "Bus");
  row.canExpand = true;
  EXPECT_EQ(rowSentence(row), "Bus, collapsed");
  row.isExpanded = true;
  EXPECT_EQ(rowSentence(row), "Bus, expanded");
}

TEST(RowSentences, ExplainTheDotOfAPortWithoutItems) {
  EXPECT_EQ(sentencesOf(PortCard{.id = "port",
                                 .header = {.dotTooltip = "Nothing attached", .title = "Port 2"}}),
            "Port 2, Nothing attached, expanded\n");
}

TEST(RowSentences, DescribeTheSpeedPowerAndVolumesOfADevice) {
  SampleStates states;
  states.benchmarks["/Volumes/Data"] = {BenchmarkPhase::Done{.writeMBps = 101, .readMBps = 202}};
  const USBDeviceDetailRow device{
      .name = "Quarry SSD",
      .speedText = "5 Gb/s",
      .speedNote = SpeedNote{.title = "Why is it slow?", .note = "The cable is the bottleneck."},
      .hubTotal = HubTotal{.text = "4.5W total"},
      .speedBar = speedBarRow(5, 10, "5 Gb/s SuperSpeed", "10 Gb/s port max"),
      .powerBar =
          powerBarRow({.usedMa = 500, .allocatedMa = 500, .portMaxMa = 900, .usedLabel = "rated"}),
      .volumes = {{"Volume", "Data", "/Volumes/Data"}, {"Volume", "Copy", "/Volumes/Copy"}},
  };
  EXPECT_EQ(
      sentenceOf(device, states),
      "Quarry SSD, 5 Gb/s, 5 Gb/s SuperSpeed, 10 Gb/s port max, The cable is the bottleneck., "
      "4.5W total, 2.5 W rated, 4.5 W port max, Volume Data, W 101, R 202 MB/s, Volume Copy");
}

TEST(RowSentences, DescribeTheEjectionOfAVolume) {
  const USBDeviceDetailRow device{.name = "Disk", .volumes = {{"Volume", "Data", "/Volumes/Data"}}};
  SampleStates states;
  states.ejectStates["/Volumes/Data"] = {EjectState::Ejecting{}};
  EXPECT_EQ(sentenceOf(device, states), "Disk, Volume Data, Ejecting…");
  states.ejectStates["/Volumes/Data"] = {EjectState::Failed{"The volume is in use."}};
  EXPECT_EQ(sentenceOf(device, states), "Disk, Volume Data, The volume is in use.");
}

TEST(RowSentences, SayTheProgressOfAVolumesTest) {
  const USBDeviceDetailRow device{.name = "Disk", .volumes = {{"Volume", "Data", "/Volumes/Data"}}};
  SampleStates states;
  states.benchmarks["/Volumes/Data"] = {BenchmarkPhase::Running{"Writing…"}};
  EXPECT_EQ(sentenceOf(device, states), "Disk, Volume Data, Writing…");
  states.testProgress["/Volumes/Data"] = 40;
  EXPECT_EQ(sentenceOf(device, states), "Disk, Volume Data, Writing… 40%");
}

TEST(RowSentences, OmitHiddenParts) {
  const struct {
    const char* description;
    ExpandableRow::Content content;
    const char* sentence;
  } rows[] = {
      {"a bare device", USBDeviceDetailRow{.name = "Keys"}, "Keys"},
      {"a bare dock", TBDeviceRow{.name = "Dock"}, "Dock"},
      {"a bare bus", USBBusHeaderRow{.name = "Bus"}, "Bus"},
      {"an adapter that does not charge", ChargerRow{"Adapter", "60 W rated", false},
       "Adapter, not charging, 60 W rated"},
      {"a bare adapter", ChargerRow{.name = "Adapter"}, "Adapter, not charging"},
      {"charging only",
       ChargingOnlyRow{.title = "Charging only", .detail = "Powered", .badge = {.text = "no data"}},
       "Charging only, no data, Powered"},
      {"nothing at all", TBDeviceRow{}, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(sentenceOf(row.content), row.sentence);
  }
}

} // namespace
} // namespace tamberline
