#include "support/language_scope.h"
#include "views/bars.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(TriBar, KeepsBothFractionsBetweenZeroAndOne) {
  const struct {
    double given;
    double kept;
  } rows[] = {{-0.5, 0}, {0, 0}, {0.001, 0.001}, {0.5, 0.5}, {1, 1}, {1.7, 1}, {1e300, 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.given);
    EXPECT_EQ(triBar(row.given, 0).usedFraction, row.kept);
    EXPECT_EQ(triBar(0, row.given).cableFraction, row.kept);
  }
}

TEST(TriBar, ShowsTheCableLayerOnlyIfItIsLonger) {
  const struct {
    double used;
    double cable;
    bool isShown;
  } rows[] = {
      {0.5, 0.51, false}, {0.5, 0.52, false}, {0.5, 0.53, true}, {0, 0.02, false},
      {0, 0.021, true},   {0.5, 0.5, false},  {0.8, 0.3, false}, {1, 1, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.used << " and " << row.cable);
    EXPECT_EQ(triBar(row.used, row.cable).showsCableLayer(), row.isShown);
  }
}

TEST(SpeedBar, IsColouredByItsRatio) {
  const struct {
    double usedGbps;
    double portMaxGbps;
    double ratio;
    Color color;
  } rows[] = {
      {5, 5, 1, Color::Green},          {0.9201, 1, 0.9201, Color::Green},
      {0.92, 1, 0.92, Color::Amber},    {4.6, 5, 0.92, Color::Amber},
      {0.45, 1, 0.45, Color::Amber},    {0.4499, 1, 0.4499, Color::Orange},
      {0.48, 10, 0.048, Color::Orange}, {80, 40, 1, Color::Green},
      {0, 5, 0, Color::Orange},         {5, 0, 0, Color::Orange},
      {5, -1, 0, Color::Orange},        {-5, 10, 0, Color::Orange},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.usedGbps << " of " << row.portMaxGbps);
    const SpeedBarRow bar = speedBarRow(row.usedGbps, row.portMaxGbps, "", "");
    EXPECT_DOUBLE_EQ(bar.ratio, row.ratio);
    EXPECT_EQ(nameOf(bar.color), nameOf(row.color));
  }
}

TEST(SpeedBar, KeepsSpeedsAndLabelsAndExplainsItself) {
  const SpeedBarRow bar = speedBarRow(80, 40, "fast", "the maximum");

  EXPECT_EQ(bar.usedGbps, 80);
  EXPECT_EQ(bar.portMaxGbps, 40);
  EXPECT_EQ(bar.speedLabel, "fast");
  EXPECT_EQ(bar.portMaxLabel, "the maximum");
  EXPECT_EQ(bar.tooltip, "Negotiated link speed vs the port's maximum. If it's below the max, the "
                         "device or cable is the bottleneck.");
}

TEST(PowerBar, ShowsDrawAllocationAndMaximumInWatts) {
  const PowerBarRow bar =
      powerBarRow({.usedMa = 500, .allocatedMa = 900, .portMaxMa = 3000, .usedLabel = "rated"});

  EXPECT_EQ(bar.usedMa, 500);
  EXPECT_EQ(bar.allocatedMa, 900);
  EXPECT_EQ(bar.portMaxMa, 3000);
  EXPECT_EQ(bar.used, "2.5 W rated");
  EXPECT_EQ(bar.allocated, "· 4.5 W allocated");
  EXPECT_EQ(bar.portMax, "15.0 W port max");
  EXPECT_DOUBLE_EQ(bar.bar.usedFraction, 500.0 / 3000);
  EXPECT_DOUBLE_EQ(bar.bar.cableFraction, 0.3);
  EXPECT_EQ(bar.tooltip, "Rated power — the device's declared maximum draw (nameplate, not a live "
                         "measurement) — against the port's power budget.");
}

TEST(PowerBar, ShowsNoAllocationThatEqualsTheDraw) {
  EXPECT_EQ(powerBarRow({.usedMa = 500, .allocatedMa = 500, .portMaxMa = 900}).allocated,
            std::nullopt);
  EXPECT_EQ(powerBarRow({.usedMa = 500, .allocatedMa = 400, .portMaxMa = 900}).allocated,
            "· 2.0 W allocated");
}

TEST(PowerBar, ShowsTheMaximumByDefault) {
  const PowerBarRow bar = powerBarRow({.usedMa = 450, .portMaxMa = 900, .showPortMax = false});

  EXPECT_EQ(bar.portMax, std::nullopt);
  EXPECT_DOUBLE_EQ(bar.bar.usedFraction, 0.5) << "the maximum still counts";
}

TEST(PowerBar, IsFullWithoutAMaximumToMeasureAgainst) {
  const struct {
    std::int64_t portMaxMa;
    std::int64_t usedMa;
    double usedFraction;
  } rows[] = {
      {0, 100, 1}, {-5, 100, 1}, {1, 100, 1}, {1, 1, 1},      {2, 1, 0.5},
      {2, 2, 1},   {0, 0, 0},    {900, 0, 0}, {900, 1800, 1}, {900, -10, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.usedMa << " of " << row.portMaxMa);
    const TriBar bar =
        powerBarRow({.usedMa = row.usedMa, .allocatedMa = row.usedMa, .portMaxMa = row.portMaxMa})
            .bar;
    EXPECT_EQ(bar.usedFraction, row.usedFraction);
    EXPECT_EQ(bar.cableFraction, row.usedFraction);
  }
}

TEST(PowerBar, IsColouredByHowMuchOfTheBudgetIsUsed) {
  const struct {
    std::int64_t usedMa;
    std::int64_t portMaxMa;
    Color color;
  } rows[] = {
      {0, 900, Color::Blue},    {500, 900, Color::Blue}, {1000, 1000, Color::Blue},
      {1001, 1000, Color::Red}, {9000, 900, Color::Red}, {500, 0, Color::Grey},
      {0, 0, Color::Grey},      {1, 1, Color::Grey},     {2, 2, Color::Blue},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.usedMa << " of " << row.portMaxMa);
    const PowerBarRow bar = powerBarRow(
        {.usedMa = row.usedMa, .allocatedMa = 5 * row.usedMa, .portMaxMa = row.portMaxMa});
    EXPECT_EQ(nameOf(bar.color), nameOf(row.color)) << "the allocation does not count";
  }
}

TEST(PowerBar, SpeaksTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);
  const PowerBarRow bar =
      powerBarRow({.usedMa = 500, .allocatedMa = 900, .portMaxMa = 900, .usedLabel = "nominal"});

  EXPECT_EQ(bar.used, "2.5 W nominal");
  EXPECT_EQ(bar.allocated, "· 4.5 W zugewiesen");
  EXPECT_EQ(bar.portMax, "4.5 W Port-Maximum");
}

TEST(WattsText, HasOneDecimal) {
  EXPECT_EQ(wattsText(0), "0.0 W");
  EXPECT_EQ(wattsText(7.5), "7.5 W");
  EXPECT_EQ(wattsText(0.06), "0.1 W");
  EXPECT_EQ(wattsText(100), "100.0 W");
}

TEST(ColorNames, AreUnique) {
  const struct {
    Color color;
    const char* name;
  } rows[] = {
      {Color::Green, "green"},     {Color::Amber, "amber"},
      {Color::Orange, "orange"},   {Color::Red, "red"},
      {Color::Blue, "blue"},       {Color::Purple, "purple"},
      {Color::Yellow, "yellow"},   {Color::Grey, "grey"},
      {Color::Accent, "accent"},   {Color::Secondary, "secondary"},
      {Color::Primary, "primary"}, {Color::TextBackground, "textBackground"},
      {Color::Clear, "clear"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(nameOf(row.color), row.name);
  }
}

} // namespace
} // namespace tamberline
