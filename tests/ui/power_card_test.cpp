#include "ui/accessible_objects.h"
#include "ui/drawing.h"
#include "ui/layout_check.h"
#include "ui/lone_component.h"
#include "views/power_card.h"

namespace tamberline {
namespace {

/// The card of the adapter and the battery.
class PowerCardOnItsOwn : public LoneComponent {
protected:
  void show(const ChargerInfo& charger, const std::optional<BatteryInfo>& battery,
            double fontScale = 1) {
    showComponent("PowerCard", {{"card", QVariant::fromValue(powerCard(charger, battery))}}, 376,
                  fontScale);
    expectNoFaults();
  }

  std::string drawn() { return "\n" + Drawing(*view, *context).of(item()); }

  void expectNoFaults() {
    for (const std::string& fault : layoutFaults(*view)) {
      ADD_FAILURE() << fault;
    }
  }

  bool isTextShown(const QString& text) {
    return findAccessible(*view, QAccessible::StaticText, text).has_value();
  }

  QColor colorOf(const QString& text) {
    return findAccessible(*view, QAccessible::StaticText, text)
        .value()
        .item()
        ->property("color")
        .value<QColor>();
  }

  QColor ink(Color color) { return context->statusColors()->inks().of(color); }

  ChargerInfo adapter{.name = "96W USB-C Power Adapter",
                      .ratedWatts = 96,
                      .currentWatts = 58,
                      .isConnected = true,
                      .isCharging = true};
};

TEST_F(PowerCardOnItsOwn, ShowsThePowerOfTheAdapter) {
  adapter.connectsViaUSBC = true;
  adapter.portLabel = "Thunderbolt Port 3";
  show(adapter, std::nullopt);
  for (const char* text : {"96W USB-C Power Adapter", "96W rated",
                           "USB-C / Thunderbolt · Thunderbolt Port 3", "rated max 96W max"}) {
    EXPECT_TRUE(isTextShown(text)) << text;
  }
  EXPECT_FALSE(isTextShown("Battery"));
}

TEST_F(PowerCardOnItsOwn, ShowsTheLevelOfTheBatteryInItsColor) {
  struct Row {
    BatteryInfo battery;
    const char* level;
    Color color;
  };
  adapter.isCharging = false;
  for (const Row& row :
       {Row{{.stateOfCharge = 5}, "5%", Color::Red}, Row{{.stateOfCharge = 20}, "20%", Color::Red},
        Row{{.stateOfCharge = 46}, "46%", Color::Primary},
        Row{{.stateOfCharge = 82, .isCharging = true}, "82%", Color::Green},
        Row{{.stateOfCharge = 100, .isFullyCharged = true}, "100%", Color::Green}}) {
    show(adapter, row.battery);
    EXPECT_TRUE(isTextShown("Battery"));
    ASSERT_TRUE(isTextShown(row.level)) << row.level;
    EXPECT_EQ(colorOf(row.level).rgb(), ink(row.color).rgb()) << row.level;
  }
}

TEST_F(PowerCardOnItsOwn, ShowsTheHealthOfTheBattery) {
  show(adapter,
       BatteryInfo{
           .stateOfCharge = 72, .health = "Good", .maxCapacityPercent = "91%", .cycleCount = 120});
  for (const char* text : {"Health", "Good 91%", "Cycles", "120"}) {
    EXPECT_TRUE(isTextShown(text)) << text;
  }
}

TEST_F(PowerCardOnItsOwn, MatchesItsDescription) {
  adapter.connectsViaUSBC = true;
  show(adapter,
       BatteryInfo{
           .stateOfCharge = 15, .health = "Good", .maxCapacityPercent = "91%", .cycleCount = 120},
       unwrappedScale);
  EXPECT_EQ(drawn(), R"(
<bolt.fill> (mark yellow)  96W USB-C Power Adapter  96W rated (secondary)  USB-C / Thunderbolt (secondary)
bar fill green, 6 high, round: 0.10 to 100%, 0.85 to 60%
Charging at 58 W (secondary)  rated max 96W max (secondary)
<battery.0percent> (red)  Battery  15% (red)  Health (secondary) on field r4  Good 91% on field r4  Cycles (secondary) on field r4  120 on field r4
)");
  adapter.isCharging = false;
  adapter.connectsViaUSBC = false;
  show(adapter, BatteryInfo{.stateOfCharge = 100, .isFullyCharged = true}, unwrappedScale);
  EXPECT_EQ(drawn(), R"(
<bolt.fill> (mark yellow)  96W USB-C Power Adapter  96W rated (secondary)
bar fill blue, 6 high, round: 0.10 to 100%, 0.85 to 60%
Powering system · 58 W (battery full) (secondary)  rated max 96W max (secondary)
<battery.100percent> (green)  Battery  100% (green)  Health (secondary) on field r4  Cycles (secondary) on field r4  0 on field r4
)");
}

TEST_F(PowerCardOnItsOwn, HasRoomForLongTexts) {
  adapter.name = "140W Volta Gallium Nitride Travel Power Adapter With Long Cable";
  adapter.connectsViaUSBC = true;
  adapter.portLabel = "Thunderbolt Port 3";
  const BatteryInfo battery{.stateOfCharge = 72,
                            .health = "Service recommended by everybody who ever looked at it",
                            .maxCapacityPercent = "91%",
                            .cycleCount = 123456};
  show(adapter, battery);
  show(adapter, battery, 2);
}

TEST_F(PowerCardOnItsOwn, ShowsAnAdapterWithoutData) {
  show({}, std::nullopt);
  EXPECT_TRUE(isTextShown("Power Adapter"));
  EXPECT_FALSE(isTextShown("96W rated"));
}

} // namespace
} // namespace tamberline
