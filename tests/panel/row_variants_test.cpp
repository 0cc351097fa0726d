#include "panel/row_variants.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace tamberline {
namespace {

/// A row of the tree that outlives what points to it.
struct TreeRow {
  PanelRow row(PanelRow::Kind kind, std::vector<VolumeTools> tools = {}) const {
    return {.kind = kind, .source = &source, .volumeTools = std::move(tools)};
  }

  ExpandableRow source;
};

const PortCard portCard;
const StandaloneUSBCard busCard;
const ChargerCard chargerCard;
const TreeRow tbDevice{{.content = TBDeviceRow{}}};
const TreeRow usbBus{{.content = USBBusHeaderRow{}}};
const TreeRow usbDevice{{.content = USBDeviceDetailRow{.volumes = {{}}}}};
const TreeRow charger{{.content = ChargerRow{}}};
const TreeRow chargingOnly{{.content = ChargingOnlyRow{}}};

/// A bare row of every kind.
std::vector<PanelRow> rowsOfEveryKind() {
  using Kind = PanelRow::Kind;
  return {
      {.kind = Kind::portHeader, .source = &portCard},
      {.kind = Kind::portPower, .source = &portCard},
      {.kind = Kind::nothingAttached, .source = &portCard},
      {.kind = Kind::partner, .source = &portCard},
      {.kind = Kind::busHeader, .source = &busCard},
      {.kind = Kind::nothingAttached, .source = &busCard},
      {.kind = Kind::chargerHeader, .source = &chargerCard},
      {.kind = Kind::chargerBody, .source = &chargerCard},
      tbDevice.row(Kind::tbDevice),
      usbBus.row(Kind::usbBus),
      usbDevice.row(Kind::usbDevice, {{}}),
      charger.row(Kind::charger),
      chargingOnly.row(Kind::chargingOnly),
  };
}

QString qml(const QString& component) {
  QFile file(QStringLiteral(PANEL_QML_FOLDER "/") + component + ".qml");
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << component.toStdString();
  return QString::fromUtf8(file.readAll());
}

/// The component that draws a kind, as the list chooses it.
QString componentOf(PanelRow::Kind kind) {
  const QRegularExpression choice("roleValue: \"" + nameOf(kind) +
                                  "\"\\s+(\\w+) \\{(?:\\s+id: \\w+\\s+(\\w+) \\{)?");
  const QRegularExpressionMatch match = choice.match(qml("PanelList"));
  return match.captured(2).isEmpty() ? match.captured(1) : match.captured(2);
}

/// The component that a component hands its content on to, or the component itself.
QString readerIn(const QString& component) {
  const QRegularExpression handedOn("(\\w+) \\{[^{}]*\\bcontent: \\w+\\.content\\s");
  const QRegularExpressionMatch match = handedOn.match(qml(component));
  return match.hasMatch() ? match.captured(1) : component;
}

/// What a component reads of the map that it knows as `name`, such as "speedBar.isShown".
QStringList fieldsRead(const QString& component, const QString& name) {
  const QRegularExpression reading("\\b" + name + "\\.([a-zA-Z]+(?:\\.[a-zA-Z]+)*)");
  QStringList fields;
  for (auto found = reading.globalMatch(qml(component)); found.hasNext();) {
    fields.push_back(found.next().captured(1));
  }
  return fields;
}

bool hasField(QVariant value, const QString& path) {
  for (const QString& key : path.split('.')) {
    const QVariantMap map = value.toMap();
    if (!map.contains(key)) {
      return false;
    }
    value = map.value(key);
  }
  return value.isValid();
}

void expectEverythingRead(const QString& component, const QString& name, const QVariant& map) {
  const QStringList fields = fieldsRead(component, name);
  EXPECT_FALSE(fields.isEmpty()) << component.toStdString() << " reads nothing";
  for (const QString& field : fields) {
    EXPECT_TRUE(hasField(map, field))
        << component.toStdString() << " reads " << name.toStdString() << "." << field.toStdString();
  }
}

TEST(RowVariants, HaveEveryFieldThatTheComponentOfTheirKindReads) {
  for (const PanelRow& row : rowsOfEveryKind()) {
    SCOPED_TRACE(nameOf(row.kind).toStdString());
    expectEverythingRead(readerIn(componentOf(row.kind)), "content", contentVariant(row));
  }
}

TEST(RowVariants, HaveEveryFieldOfTheirParts) {
  const auto read = [](const PanelRow& row, const char* key) {
    return contentVariant(row).value(key);
  };
  const PortCard card{.badges = {{}}};
  const PanelRow port{.kind = PanelRow::Kind::portHeader, .source = &card};
  const PanelRow dock = tbDevice.row(PanelRow::Kind::tbDevice);
  const PanelRow device = usbDevice.row(PanelRow::Kind::usbDevice, {{}});
  const QVariant volume = read(device, "volumes").toList().value(0);

  expectEverythingRead("BadgeView", "badge", read(port, "badges").toList().value(0));
  expectEverythingRead("BadgeView", "badge", read(dock, "modeBadge"));
  expectEverythingRead("BadgeView", "badge",
                       read(chargingOnly.row(PanelRow::Kind::chargingOnly), "badge"));
  expectEverythingRead("MeasuredPowerRow", "power", read(port, "measuredPower"));
  expectEverythingRead("PowerBarRow", "powerBar", read(port, "portPowerBar"));
  expectEverythingRead("PowerBarRow", "powerBar", read(device, "powerBar"));
  expectEverythingRead("SpeedBarRow", "speedBar", read(device, "speedBar"));
  expectEverythingRead("SpeedBarRow", "speedBar", read(dock, "speedBar"));
  expectEverythingRead("TriBar", "bar", read(device, "speedBar").toMap().value("bar"));
  expectEverythingRead("TriBar", "bar", read(port, "measuredPower").toMap().value("bar"));
  expectEverythingRead("NameLabel", "name", read(device, "name"));
  expectEverythingRead("BenchmarkRow", "volume", volume);
  expectEverythingRead("ChargerRow", "content",
                       read({.kind = PanelRow::Kind::chargerBody, .source = &chargerCard}, "row"));
  const QVariantMap power = powerCardVariant({});
  expectEverythingRead("PowerCard", "card", power);
  expectEverythingRead("InfoChip", "chip", power.value("battery").toMap().value("health"));
  expectEverythingRead("InfoChip", "chip", power.value("battery").toMap().value("cycles"));
}

TEST(RowVariants, SayWhatIsShown) {
  const USBDeviceDetailRow device{.name = "Quarry SSD",
                                  .speedColor = Color::amber,
                                  .speedNote = SpeedNote{"Why?", "The cable."},
                                  .powerBar = powerBarRow({.usedMa = 500, .portMaxMa = 1000}),
                                  .volumes = {{"Volume", "Data", "/Volumes/Data"}}};
  const TreeRow tree{{.content = device}};
  const QVariantMap content = contentVariant(
      tree.row(PanelRow::Kind::usbDevice,
               {{.testTexts = {{"W 1", Color::blue}},
                 .ejectButton = SymbolButton{.symbol = "eject.circle", .isEnabled = false}}}));
  const QVariantMap volume = content["volumes"].toList().at(0).toMap();

  EXPECT_EQ(content["name"].toMap()["text"], "Quarry SSD");
  EXPECT_EQ(content["speedColor"], "speedTextAmber");
  EXPECT_TRUE(content["speedNote"].toMap()["isShown"].toBool());
  EXPECT_EQ(content["speedNote"].toMap()["note"], "The cable.");
  EXPECT_FALSE(content["speedBar"].toMap()["isShown"].toBool());
  EXPECT_FALSE(content["hubTotal"].toMap()["isShown"].toBool());
  EXPECT_EQ(content["powerBar"].toMap()["bar"].toMap()["usedFraction"].toDouble(), 0.5);
  EXPECT_EQ(content["powerBar"].toMap()["color"], "green");
  EXPECT_EQ(volume["name"].toMap()["text"], "Data");
  EXPECT_EQ(volume["mountPoint"], "/Volumes/Data");
  EXPECT_EQ(volume["testTexts"].toList().at(0).toMap()["color"], "blue");
  EXPECT_FALSE(volume["testButton"].toMap()["isShown"].toBool());
  EXPECT_TRUE(volume["ejectButton"].toMap()["isShown"].toBool());
  EXPECT_FALSE(volume["ejectButton"].toMap()["isEnabled"].toBool());
}

TEST(RowVariants, ShowPlainBadgesWithoutBackground) {
  const PortCard card{
      .badges = {{.badge = {.text = "15 W"}},
                 {.badge = {.text = "96W", .icon = "bolt.fill", .color = Color::green}}}};
  const QVariantList badges =
      contentVariant({.kind = PanelRow::Kind::portHeader, .source = &card})["badges"].toList();
  EXPECT_FALSE(badges.at(0).toMap()["hasBackground"].toBool());
  EXPECT_EQ(badges.at(0).toMap()["color"], "secondary");
  EXPECT_EQ(badges.at(0).toMap()["icon"], "");
  EXPECT_TRUE(badges.at(1).toMap()["hasBackground"].toBool());
  EXPECT_EQ(badges.at(1).toMap()["color"], "green");
  EXPECT_EQ(badges.at(1).toMap()["icon"], "bolt.fill");
}

TEST(PowerCardVariant, SaysWhatIsShown) {
  const QVariantMap card = powerCardVariant(
      {.name = "96W Adapter",
       .rated = "96 W",
       .bar = TriBar{0.5, 0.7},
       .battery = BatteryDetails{
           .level = "72%", .levelColor = Color::green, .health = {"Health", "91%"}}});
  EXPECT_EQ(card["name"].toMap()["text"], "96W Adapter");
  EXPECT_EQ(card["rated"], "96 W");
  EXPECT_EQ(card["port"], "");
  EXPECT_EQ(card["bar"].toMap()["cableFraction"].toDouble(), 0.7);
  EXPECT_TRUE(card["bar"].toMap()["showsCableLayer"].toBool());
  EXPECT_EQ(card["battery"].toMap()["levelColor"], "green");
  EXPECT_EQ(card["battery"].toMap()["health"].toMap()["value"], "91%");
  EXPECT_FALSE(powerCardVariant({})["battery"].toMap()["isShown"].toBool());
}

/// Every text inside, maps and lists included.
QStringList textsOf(const QVariant& value) {
  QStringList texts;
  if (value.typeId() == QMetaType::QVariantMap) {
    for (const QVariant& inner : value.toMap()) {
      texts += textsOf(inner);
    }
  } else if (value.typeId() == QMetaType::QVariantList) {
    for (const QVariant& inner : value.toList()) {
      texts += textsOf(inner);
    }
  } else if (value.typeId() == QMetaType::QString) {
    texts.push_back(value.toString());
  }
  return texts;
}

/// Contents with the name wherever a device or a person chose the text.
std::vector<QVariantMap> contentsNamed(const std::string& name) {
  const PortCard port{.title = name, .badges = {{.badge = {.text = name, .tooltip = name}}}};
  const StandaloneUSBCard bus{.header = {.name = name}};
  const ChargerCard adapter{.title = name, .port = name, .row = {.name = name, .rated = name}};
  const TreeRow dock{{.content = TBDeviceRow{.name = name, .modeBadge = Badge{.text = name}}}};
  const TreeRow device{
      {.content = USBDeviceDetailRow{.name = name,
                                     .speedText = name,
                                     .speedNote = SpeedNote{name, name},
                                     .volumes = {{.label = "Volume", .name = name}}}}};
  return {
      contentVariant({.kind = PanelRow::Kind::portHeader, .source = &port}),
      contentVariant({.kind = PanelRow::Kind::busHeader, .source = &bus}),
      contentVariant({.kind = PanelRow::Kind::chargerHeader, .source = &adapter}),
      contentVariant(dock.row(PanelRow::Kind::tbDevice)),
      contentVariant(device.row(PanelRow::Kind::usbDevice, {{.testTexts = {{name}}}})),
      powerCardVariant({.name = name, .rated = name, .port = name}),
  };
}

TEST(RowVariants, MakeHostileNamesHarmless) {
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
    for (const QVariantMap& content : contentsNamed(row.name)) {
      const QStringList texts = textsOf(content);
      EXPECT_TRUE(texts.contains(row.shown)) << texts.join(" | ").toStdString();
      const auto raw = QString::fromStdString(row.name);
      EXPECT_TRUE(raw == row.shown || !texts.contains(raw));
    }
  }
}

TEST(RowVariants, KeepLongNamesShort) {
  for (const QVariantMap& content : contentsNamed(std::string(200'000, 'x'))) {
    for (const QString& text : textsOf(content)) {
      EXPECT_LE(text.size(), static_cast<qsizetype>(longestTooltip));
    }
    const QVariantMap name = content.value(content.contains("name") ? "name" : "title").toMap();
    EXPECT_LE(name["text"].toString().size(), 120);
  }
}

TEST(RowVariants, SayInATooltipMoreThanTheName) {
  const PortCard card{.title = "Thunderbolt Port 2", .titleNote = "Receptacles 3, 4"};
  const QVariantMap title =
      contentVariant({.kind = PanelRow::Kind::portHeader, .source = &card})["title"].toMap();
  EXPECT_EQ(title["text"], "Thunderbolt Port 2");
  EXPECT_EQ(title["tooltip"], "Thunderbolt Port 2 · Receptacles 3, 4");

  const TreeRow dock{{.content = TBDeviceRow{.name = "Dock  ", .link = LinkNote{{}, "Link"}}}};
  const QVariantMap name = contentVariant(dock.row(PanelRow::Kind::tbDevice))["name"].toMap();
  EXPECT_EQ(name["text"], "Dock");
  EXPECT_EQ(name["tooltip"], "Dock · Link");

  const TreeRow phone{{.content = USBDeviceDetailRow{.name = "Phone", .note = "1600 mA"}}};
  EXPECT_EQ(contentVariant(phone.row(PanelRow::Kind::usbDevice))["name"].toMap()["tooltip"],
            "Phone · 1600 mA");
}

TEST(RowVariants, GiveTheWholeNameBesideACutOne) {
  const std::string name = std::string(70, 'a') + std::string(70, 'b');
  const TreeRow dock{{.content = TBDeviceRow{.name = name}}};
  const QVariantMap shown = contentVariant(dock.row(PanelRow::Kind::tbDevice))["name"].toMap();
  EXPECT_EQ(shown["text"].toString().size(), 120);
  EXPECT_EQ(shown["tooltip"].toString().toStdString(), name);
}

TEST(RowVariants, SayThatNothingIsAttachedToABus) {
  const StandaloneUSBCard bus{.nothingAttached = "Nothing attached"};
  const PanelRow row{.kind = PanelRow::Kind::nothingAttached, .source = &bus};
  EXPECT_EQ(contentVariant(row)["nothingAttached"], "Nothing attached");
}

TEST(VariantNames, AreTheirOwn) {
  std::map<PanelRow::Kind, QString> nameByKind;
  for (const PanelRow& row : rowsOfEveryKind()) {
    nameByKind[row.kind] = nameOf(row.kind);
  }
  QStringList names;
  for (const auto& [kind, name] : nameByKind) {
    names.push_back(name);
  }
  EXPECT_EQ(names.removeDuplicates(), 0);
  EXPECT_FALSE(names.contains(QString()));
  EXPECT_EQ(nameOf(Pulse::none), "none");
  EXPECT_EQ(nameOf(Pulse::throbbing), "throbbing");
  EXPECT_EQ(nameOf(Pulse::fading), "fading");
}

} // namespace
} // namespace tamberline
