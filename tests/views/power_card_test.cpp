#include "support/language_scope.h"
#include "views/power_card.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

ChargerInfo adapter() {
  return ChargerInfo{.name = "96W USB-C Power Adapter",
                     .ratedWatts = 96,
                     .currentWatts = 48,
                     .isConnected = true,
                     .isCharging = true};
}

BatteryInfo battery(std::int64_t level) {
  return BatteryInfo{.stateOfCharge = level};
}

BatteryDetails detailsOf(const BatteryInfo& battery) {
  return powerCard(adapter(), battery).battery.value();
}

TEST(PowerCard, NamesAndRatesTheAdapter) {
  const PowerCard card = powerCard(adapter(), std::nullopt);

  EXPECT_EQ(card.name, "96W USB-C Power Adapter");
  EXPECT_EQ(card.rated, "96W rated");
  EXPECT_EQ(card.ratedMax, "rated max 96W max");
  EXPECT_EQ(card.port, std::nullopt);
  EXPECT_FALSE(card.battery.has_value());
}

TEST(PowerCard, NamesANamelessAdapterAdapter) {
  EXPECT_EQ(powerCard(ChargerInfo{}, std::nullopt).name, "Power Adapter");
}

TEST(PowerCard, NamesTheUSBCPort) {
  ChargerInfo charger = adapter();
  charger.connectsViaUSBC = true;
  EXPECT_EQ(powerCard(charger, std::nullopt).port, "USB-C / Thunderbolt");

  charger.portLabel = "Thunderbolt Port 2";
  EXPECT_EQ(powerCard(charger, std::nullopt).port, "USB-C / Thunderbolt · Thunderbolt Port 2");
  EXPECT_EQ(powerCard(charger, std::nullopt).portTooltip,
            "Physical port the power adapter is plugged into");
}

TEST(PowerCard, ShowsTheDeliveredPowerAgainstTheRating) {
  const struct {
    std::int64_t currentWatts;
    std::int64_t ratedWatts;
    double fraction;
  } rows[] = {{48, 96, 0.5}, {0, 96, 0}, {96, 96, 1}, {140, 96, 1}, {10, 0, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.currentWatts << " of " << row.ratedWatts);
    ChargerInfo charger = adapter();
    charger.currentWatts = row.currentWatts;
    charger.ratedWatts = row.ratedWatts;
    const PowerCard card = powerCard(charger, std::nullopt);
    ASSERT_TRUE(card.bar.has_value());
    EXPECT_EQ(card.bar->usedFraction, row.fraction);
    EXPECT_FALSE(card.bar->showsCableLayer());
  }
}

TEST(PowerCard, IsGreenWhileChargingAndOtherwiseBlue) {
  ChargerInfo charger = adapter();
  EXPECT_EQ(nameOf(powerCard(charger, std::nullopt).barColor), "green");

  charger.isCharging = false;
  EXPECT_EQ(nameOf(powerCard(charger, std::nullopt).barColor), "blue");
}

TEST(PowerCard, LeavesOutWhatNeedsARating) {
  ChargerInfo charger = adapter();
  charger.ratedWatts.reset();
  const PowerCard card = powerCard(charger, std::nullopt);

  EXPECT_FALSE(card.bar.has_value());
  EXPECT_EQ(card.rated, std::nullopt);
  EXPECT_EQ(card.ratedMax, std::nullopt);
}

TEST(PowerCard, DrawsNoBarForAnAdapterThatReportsNoDelivery) {
  ChargerInfo charger = adapter();
  charger.currentWatts.reset();
  const PowerCard card = powerCard(charger, std::nullopt);

  EXPECT_FALSE(card.bar.has_value());
  EXPECT_EQ(card.delivery, std::nullopt);
  EXPECT_EQ(card.ratedMax, "rated max 96W max");
}

TEST(PowerCard, SaysWhereThePowerGoes) {
  const BatteryInfo full{.stateOfCharge = 100, .isFullyCharged = true};
  ChargerInfo idle = adapter();
  idle.isCharging = false;

  EXPECT_EQ(powerCard(adapter(), battery(50)).delivery, "Charging at 48 W");
  EXPECT_EQ(powerCard(adapter(), full).delivery, "Charging at 48 W");
  EXPECT_EQ(powerCard(idle, full).delivery, "Powering system · 48 W (battery full)");
  EXPECT_EQ(powerCard(idle, battery(50)).delivery, std::nullopt);
  EXPECT_EQ(powerCard(idle, std::nullopt).delivery, std::nullopt);
}

TEST(PowerCard, SpeaksTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);

  EXPECT_EQ(powerCard(ChargerInfo{}, std::nullopt).name, "Netzteil");
  EXPECT_EQ(powerCard(adapter(), std::nullopt).delivery, "Lädt mit 48 W");
}

TEST(BatteryIcon, StopsAtThreeQuartersUnlessTheBatteryReportsFull) {
  const struct {
    std::int64_t level;
    const char* icon;
    Color color;
  } rows[] = {
      {0, "battery.0percent", Color::Red},        {15, "battery.0percent", Color::Red},
      {16, "battery.25percent", Color::Red},      {20, "battery.25percent", Color::Red},
      {21, "battery.25percent", Color::Primary},  {35, "battery.25percent", Color::Primary},
      {36, "battery.50percent", Color::Primary},  {60, "battery.50percent", Color::Primary},
      {61, "battery.75percent", Color::Primary},  {99, "battery.75percent", Color::Primary},
      {100, "battery.75percent", Color::Primary},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.level);
    EXPECT_EQ(detailsOf(battery(row.level)).icon, row.icon);
    EXPECT_EQ(nameOf(detailsOf(battery(row.level)).levelColor), nameOf(row.color));
  }
}

TEST(BatteryIcon, IsTheBoltAtAnyLevelWhileCharging) {
  for (const std::int64_t level : {0, 15, 50, 100}) {
    SCOPED_TRACE(level);
    for (const bool isFullyCharged : {false, true}) {
      const BatteryDetails details =
          detailsOf({.stateOfCharge = level, .isFullyCharged = isFullyCharged, .isCharging = true});
      EXPECT_EQ(details.icon, "battery.100percent.bolt");
      EXPECT_EQ(nameOf(details.levelColor), "green");
    }
  }
}

TEST(BatteryIcon, IsFullWhenTheBatterySaysSo) {
  const BatteryDetails details = detailsOf({.stateOfCharge = 10, .isFullyCharged = true});

  EXPECT_EQ(details.icon, "battery.100percent");
  EXPECT_EQ(nameOf(details.levelColor), "green");
}

TEST(BatteryDetails, ShowLevelHealthAndCycles) {
  const BatteryDetails details = detailsOf(
      {.stateOfCharge = 72, .health = "Good", .maxCapacityPercent = "91%", .cycleCount = 120});

  EXPECT_EQ(details.label, "Battery");
  EXPECT_EQ(details.level, "72%");
  EXPECT_EQ(details.health.label, "Health");
  EXPECT_EQ(details.health.value, "Good 91%");
  EXPECT_EQ(details.cycles.label, "Cycles");
  EXPECT_EQ(details.cycles.value, "120");
}

TEST(BatteryDetails, ShowWhatIsKnownOfTheHealth) {
  EXPECT_EQ(detailsOf({.health = "Good"}).health.value, "Good");
  EXPECT_EQ(detailsOf({.maxCapacityPercent = "91%"}).health.value, "91%");
  EXPECT_EQ(detailsOf({}).health.value, "");
}

} // namespace
} // namespace tamberline
