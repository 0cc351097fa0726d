#include "views/panel_rows.h"
#include "views/power_card.h"

#include <QMetaProperty>
#include <QStringList>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

/// Adds every text that QML can read of a value, those of its parts and lists included.
void collectTexts(const QVariant& value, QStringList& texts) {
  if (value.typeId() == QMetaType::QString) {
    texts.push_back(value.toString());
  } else if (value.typeId() == QMetaType::QVariantList) {
    for (const QVariant& inner : value.toList()) {
      collectTexts(inner, texts);
    }
  } else if (value.metaType().flags().testFlag(QMetaType::IsGadget)) {
    const QMetaObject& gadget = *value.metaType().metaObject();
    for (int index = 0; index < gadget.propertyCount(); ++index) {
      collectTexts(gadget.property(index).readOnGadget(value.constData()), texts);
    }
  }
}

template <typename Value>
QStringList shownTexts(const Value& value) {
  QStringList texts;
  collectTexts(QVariant::fromValue(value), texts);
  return texts;
}

/// What values show that have the name wherever a device or a person chose the text.
std::vector<QStringList> textsOfValuesNamed(const std::string& name) {
  return {
      shownTexts(PortHeader{.title = name, .badges = {{.badge = {.text = name, .tooltip = name}}}}),
      shownTexts(USBBusHeaderRow{.name = name}),
      shownTexts(ChargerCard{.header = {.title = name, .port = name},
                             .row = {.name = name, .rated = name}}),
      shownTexts(PartnerNotice{.title = name, .detail = name}),
      shownTexts(ChargingOnlyRow{.title = name, .detail = name}),
      shownTexts(TBDeviceRow{.name = name, .modeBadge = Badge{.text = name}}),
      shownTexts(USBDeviceDetailRow{
          .name = name,
          .speedText = name,
          .speedNote = SpeedNote{name, name},
          .volumes = {{.label = "Volume", .name = name, .tools = {.testTexts = {{name}}}}}}),
      shownTexts(PowerCard{.name = name, .rated = name, .port = name}),
  };
}

TEST(ShownValues, MakeHostileNamesHarmless) {
  const struct {
    const char* description;
    std::string name;
    QString shown;
  } rows[] = {
      {"control characters", "a\x1b[31m\nb", "a\uFFFD[31m\uFFFDb"},
      {"a turned direction", "a\u202Eb\u2066c", "a\uFFFDb\uFFFDc"},
      {"invisible characters", "a\u200Bb\u00ADc", "a\uFFFDb\uFFFDc"},
      {"broken bytes", "a\xff\xfe", "a\uFFFD\uFFFD"},
      {"markup stays what it is", "<b>&amp;</b><img src=x>", "<b>&amp;</b><img src=x>"},
      {"percent signs", "%1 %s", "%1 %s"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    for (const QStringList& texts : textsOfValuesNamed(row.name)) {
      EXPECT_TRUE(texts.contains(row.shown)) << texts.join(" | ").toStdString();
      const auto raw = QString::fromStdString(row.name);
      EXPECT_TRUE(raw == row.shown || !texts.contains(raw));
    }
  }
}

TEST(ShownValues, KeepLongNamesShort) {
  for (const QStringList& texts : textsOfValuesNamed(std::string(200'000, 'x'))) {
    bool isCut = false;
    for (const QString& text : texts) {
      EXPECT_LE(text.size(), static_cast<qsizetype>(maxTooltipLength));
      isCut = isCut || text.size() == static_cast<qsizetype>(maxLabelLength);
    }
    EXPECT_TRUE(isCut) << texts.join(" | ").toStdString();
  }
}

TEST(ShownValues, SayNothingOfPartsThatAreAbsent) {
  const USBDeviceDetailRow device;
  EXPECT_EQ(device.shownSpeedNote().titleLabel(), "");
  EXPECT_EQ(device.shownHubTotal().textLabel(), "");
  EXPECT_FALSE(device.hasSpeedBar());
  EXPECT_FALSE(device.hasPowerBar());
  EXPECT_EQ(TBDeviceRow().shownModeBadge().textLabel(), "");
  EXPECT_EQ(TBDeviceRow().shownWarningBadge().textLabel(), "");
  EXPECT_EQ(VolumeTools().shownTestButton().symbolName(), "");
  EXPECT_EQ(VolumeTools().shownEjectButton().symbolName(), "");
  EXPECT_TRUE(PortPower().isEmpty());
  EXPECT_FALSE(PowerCard().hasBattery());
  EXPECT_EQ(PowerCard().portLabel(), "");
}

TEST(ShownValues, SayOfPartsThatAreThereWhatTheyShow) {
  const USBDeviceDetailRow device{.speedNote = SpeedNote{"Why?", "The cable."},
                                  .speedBar = speedBarRow(5, 10, "5", "10"),
                                  .powerBar = powerBarRow({.usedMa = 500, .portMaxMa = 1000})};
  EXPECT_EQ(device.shownSpeedNote().noteText(), "The cable.");
  EXPECT_TRUE(device.hasSpeedBar());
  EXPECT_EQ(device.shownSpeedBar().bar(), triBar(0.5, 0));
  EXPECT_TRUE(device.hasPowerBar());
  EXPECT_EQ(device.shownPowerBar().bar.usedFraction, 0.5);
  const PowerCard card{.bar = TriBar{0.5, 0.7}, .battery = BatteryDetails{.level = "72%"}};
  EXPECT_TRUE(card.hasBar());
  EXPECT_EQ(card.shownBar().cableFraction, 0.7);
  EXPECT_TRUE(card.hasBattery());
  EXPECT_EQ(card.shownBattery().levelText(), "72%");
}

TEST(ShownValues, HaveAnAmberOfTheirOwnForTheSpeedOfADevice) {
  EXPECT_EQ(USBDeviceDetailRow{.speedColor = Color::Amber}.shownSpeedColor(),
            Color::SpeedTextAmber);
  EXPECT_EQ(USBDeviceDetailRow{.speedColor = Color::Green}.shownSpeedColor(), Color::Green);
}

TEST(ShownValues, ShowPlainBadgesWithoutBackground) {
  const Badge plain{.text = "15 W"};
  EXPECT_FALSE(plain.hasBackground());
  EXPECT_EQ(plain.shownColor(), Color::Secondary);
  EXPECT_EQ(plain.iconName(), "");
  const Badge colored{.text = "96W", .icon = "bolt.fill", .color = Color::Green};
  EXPECT_TRUE(colored.hasBackground());
  EXPECT_EQ(colored.shownColor(), Color::Green);
  EXPECT_EQ(colored.iconName(), "bolt.fill");
}

TEST(ShownValues, SayInATooltipMoreThanTheName) {
  const PortHeader port{.title = "Thunderbolt Port 2", .titleNote = "Receptacles 3, 4"};
  EXPECT_EQ(port.titleText(),
            (NameLabel{"Thunderbolt Port 2", "Thunderbolt Port 2 · Receptacles 3, 4"}));
  const TBDeviceRow dock{.name = "Dock  ", .link = LinkNote{{}, "Link"}};
  EXPECT_EQ(dock.nameText(), (NameLabel{"Dock", "Dock · Link"}));
  const USBDeviceDetailRow phone{.name = "Phone", .note = "1600 mA"};
  EXPECT_EQ(phone.nameText().tooltip, "Phone · 1600 mA");
}

TEST(ShownValues, GiveTheWholeNameBesideACutOne) {
  const std::string name = std::string(70, 'a') + std::string(70, 'b');
  const NameLabel shown = TBDeviceRow{.name = name}.nameText();
  EXPECT_EQ(shown.text.size(), 120);
  EXPECT_EQ(shown.tooltip.toStdString(), name);
}

} // namespace
} // namespace tamberline
