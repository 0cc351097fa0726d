#include "panel/row_variants.h"

#include "base/overloaded.h"
#include "base/shown_text.h"
#include "base/text.h"

#include <QVariantList>

#include <algorithm>
#include <iterator>
#include <optional>

namespace tamberline {
namespace {

QString tooltipText(std::string_view text) {
  return displayText(text, longestTooltip);
}

QString symbolText(std::string_view symbol) {
  return QString::fromUtf8(symbol.data(), static_cast<qsizetype>(symbol.size()));
}

/// A name that may be cut where it is drawn, with its whole length beside it.
QVariantMap nameVariant(std::string_view name) {
  return {{"text", displayText(name)}, {"tooltip", tooltipText(name)}};
}

/// A name whose tooltip says more than the name.
QVariantMap nameVariant(std::string_view name, const std::optional<std::string>& note) {
  QVariantMap variant = nameVariant(name);
  if (note) {
    variant["tooltip"] = tooltipText(std::string(trimmed(name)) + " · " + *note);
  }
  return variant;
}

QString textOrNothing(const std::optional<std::string>& text) {
  return displayText(text.value_or(""));
}

/// A part that is not shown has all its fields nevertheless, so that nothing in QML is undefined.
template <typename Value, typename Convert>
QVariantMap part(const std::optional<Value>& value, Convert convert) {
  QVariantMap map = convert(value.value_or(Value{}));
  map.insert("isShown", value.has_value());
  return map;
}

QVariantMap barVariant(const TriBar& bar) {
  return {{"usedFraction", bar.usedFraction},
          {"cableFraction", bar.cableFraction},
          {"showsCableLayer", bar.showsCableLayer()}};
}

QVariantMap badgeVariant(const Badge& badge) {
  return {{"text", displayText(badge.text)},
          {"icon", badge.icon ? symbolText(*badge.icon) : QString()},
          {"color", colorName(badge.color.value_or(Color::secondary))},
          {"hasBackground", badge.color.has_value()},
          {"tooltip", tooltipText(badge.tooltip)},
          {"isShown", true}};
}

QVariantMap speedBarVariant(const SpeedBarRow& bar) {
  return {{"bar", barVariant(triBar(bar.ratio, 0))},
          {"color", colorName(bar.color)},
          {"speedLabel", displayText(bar.speedLabel)},
          {"portMaxLabel", displayText(bar.portMaxLabel)},
          {"tooltip", tooltipText(bar.tooltip)}};
}

QVariantMap powerBarVariant(const PowerBarRow& bar) {
  return {{"bar", barVariant(bar.bar)},
          {"used", displayText(bar.used)},
          {"allocated", textOrNothing(bar.allocated)},
          {"portMax", textOrNothing(bar.portMax)},
          {"color", colorName(bar.color)},
          {"tooltip", tooltipText(bar.tooltip)}};
}

QVariantMap measuredPowerVariant(const MeasuredPower& power) {
  return {{"bar", barVariant(power.bar)},
          {"used", displayText(power.used)},
          {"allocated", textOrNothing(power.allocated)},
          {"voltageCurrent", displayText(power.voltageCurrent)},
          {"tooltip", tooltipText(power.tooltip)}};
}

QVariantMap agreedPowerVariant(const AgreedPowerRow& power) {
  return {{"watts", displayText(power.watts)},
          {"voltageCurrent", displayText(power.voltageCurrent)},
          {"tooltip", tooltipText(power.tooltip)}};
}

QVariantMap partnerVariant(const PartnerNotice& partner) {
  return {{"icon", symbolText(partner.icon)},
          {"title", displayText(partner.title)},
          {"detail", tooltipText(partner.detail)}};
}

QVariantMap buttonVariant(const SymbolButton& button) {
  return {{"symbol", symbolText(button.symbol)},
          {"tooltip", tooltipText(button.tooltip)},
          {"color", colorName(button.color)},
          {"isEnabled", button.isEnabled}};
}

QVariantMap volumeVariant(const VolumeRow& volume, const VolumeTools& tools) {
  QVariantList testTexts;
  for (const ColoredText& text : tools.testTexts) {
    testTexts.push_back(
        QVariantMap{{"text", displayText(text.text)}, {"color", colorName(text.color)}});
  }
  return {{"label", displayText(volume.label)},
          {"name", nameVariant(volume.name)},
          {"mountPoint", QString::fromStdString(volume.mountPoint)},
          {"showsTestProgress", tools.showsTestProgress},
          {"testProgress", displayText(tools.testProgress)},
          {"stopTooltip", tooltipText(tools.stopTooltip)},
          {"testTexts", testTexts},
          {"testButton", part(tools.testButton, buttonVariant)},
          {"showsEjectProgress", tools.showsEjectProgress},
          {"ejectButton", part(tools.ejectButton, buttonVariant)}};
}

QVariantMap chargerVariant(const ChargerRow& row) {
  return {{"name", nameVariant(row.shownName())},
          {"rated", textOrNothing(row.rated)},
          {"isCharging", row.isCharging}};
}

QVariantMap portVariant(const PortCard& card) {
  QVariantList badges;
  for (const PortBadge& badge : card.badges) {
    badges.push_back(badgeVariant(badge.badge));
  }
  return {{"inUse", card.inUse},
          {"dotTooltip", tooltipText(card.dotTooltip)},
          {"title", nameVariant(card.title, card.titleNote)},
          {"itemCount", textOrNothing(card.itemCount)},
          {"itemCountTooltip", tooltipText(card.itemCountTooltip.value_or(""))},
          {"badges", badges},
          {"measuredPower", part(card.measuredPower, measuredPowerVariant)},
          {"agreedPower", part(card.agreedPower, agreedPowerVariant)},
          {"portPowerBar", part(card.portPowerBar, powerBarVariant)},
          {"partner", part(card.partner, partnerVariant)},
          {"nothingAttached", textOrNothing(card.nothingAttached)}};
}

QVariantMap busVariant(const USBBusHeaderRow& row) {
  return {{"name", nameVariant(row.name, row.note)}, {"ratedDraw", textOrNothing(row.ratedDraw)}};
}

QVariantMap busCardVariant(const StandaloneUSBCard& card) {
  QVariantMap map = busVariant(card.header);
  map.insert("nothingAttached", textOrNothing(card.nothingAttached));
  return map;
}

QVariantMap chargerCardVariant(const ChargerCard& card) {
  return {{"icon", symbolText(card.icon)},
          {"title", displayText(card.title)},
          {"port", displayText(card.port)},
          {"portTooltip", tooltipText(card.portTooltip)},
          {"row", chargerVariant(card.row)}};
}

QVariantMap tbDeviceVariant(const TBDeviceRow& row) {
  const auto note = row.link ? std::optional(row.link->text) : std::nullopt;
  return {{"icon", symbolText(row.icon)},
          {"name", nameVariant(row.name, note)},
          {"modeBadge", part(row.modeBadge, badgeVariant)},
          {"warningBadge", part(row.warningBadge, badgeVariant)},
          {"ratedDraw", textOrNothing(row.ratedDraw)},
          {"speedBar", part(row.speedBar, speedBarVariant)}};
}

QVariantMap speedNoteVariant(const SpeedNote& note) {
  return {{"title", displayText(note.title)}, {"note", tooltipText(note.note)}};
}

QVariantMap hubTotalVariant(const HubTotal& total) {
  return {{"text", displayText(total.text)}, {"tooltip", tooltipText(total.tooltip)}};
}

/// The amber of a device's speed is not quite that of the bars.
QString speedTextColorName(Color color) {
  return color == Color::amber ? QStringLiteral("speedTextAmber") : colorName(color);
}

QVariantMap usbDeviceVariant(const USBDeviceDetailRow& row, const std::vector<VolumeTools>& tools) {
  QVariantList volumes;
  for (std::size_t index = 0; index < row.volumes.size(); ++index) {
    volumes.push_back(volumeVariant(row.volumes[index], tools.at(index)));
  }
  return {{"icon", symbolText(row.icon)},
          {"name", nameVariant(row.name, row.note)},
          {"speedText", displayText(row.speedText)},
          {"speedColor", speedTextColorName(row.speedColor)},
          {"speedTooltip", tooltipText(row.speedTooltip)},
          {"speedNote", part(row.speedNote, speedNoteVariant)},
          {"hubTotal", part(row.hubTotal, hubTotalVariant)},
          {"speedBar", part(row.speedBar, speedBarVariant)},
          {"powerBar", part(row.powerBar, powerBarVariant)},
          {"volumes", volumes}};
}

QVariantMap chargingOnlyVariant(const ChargingOnlyRow& row) {
  return {{"title", displayText(row.title)},
          {"detail", tooltipText(row.detail)},
          {"badge", badgeVariant(row.badge)}};
}

QVariantMap treeRowVariant(const ExpandableRow& row, const std::vector<VolumeTools>& tools) {
  return std::visit(
      Overloaded{
          [](const TBDeviceRow& content) { return tbDeviceVariant(content); },
          [](const USBBusHeaderRow& content) { return busVariant(content); },
          [&](const USBDeviceDetailRow& content) { return usbDeviceVariant(content, tools); },
          [](const ChargerRow& content) { return chargerVariant(content); },
          [](const ChargingOnlyRow& content) { return chargingOnlyVariant(content); },
      },
      row.content);
}

QVariantMap chipVariant(const InfoChip& chip) {
  return {{"label", displayText(chip.label)}, {"value", displayText(chip.value)}};
}

QVariantMap batteryVariant(const BatteryDetails& battery) {
  return {{"icon", symbolText(battery.icon)},      {"label", displayText(battery.label)},
          {"level", displayText(battery.level)},   {"levelColor", colorName(battery.levelColor)},
          {"health", chipVariant(battery.health)}, {"cycles", chipVariant(battery.cycles)}};
}

} // namespace

QString displayText(std::string_view text, std::size_t mostCharacters) {
  return QString::fromStdString(shownText(text, mostCharacters));
}

QString colorName(Color color) {
  return symbolText(nameOf(color));
}

QString nameOf(PanelRow::Kind kind) {
  switch (kind) {
  case PanelRow::Kind::portHeader:
    return QStringLiteral("portHeader");
  case PanelRow::Kind::portPower:
    return QStringLiteral("portPower");
  case PanelRow::Kind::nothingAttached:
    return QStringLiteral("nothingAttached");
  case PanelRow::Kind::partner:
    return QStringLiteral("partner");
  case PanelRow::Kind::busHeader:
    return QStringLiteral("busHeader");
  case PanelRow::Kind::chargerHeader:
    return QStringLiteral("chargerHeader");
  case PanelRow::Kind::chargerBody:
    return QStringLiteral("chargerBody");
  case PanelRow::Kind::tbDevice:
    return QStringLiteral("tbDevice");
  case PanelRow::Kind::usbBus:
    return QStringLiteral("usbBus");
  case PanelRow::Kind::usbDevice:
    return QStringLiteral("usbDevice");
  case PanelRow::Kind::charger:
    return QStringLiteral("charger");
  case PanelRow::Kind::chargingOnly:
    return QStringLiteral("chargingOnly");
  }
  return {};
}

QString nameOf(Pulse pulse) {
  switch (pulse) {
  case Pulse::none:
    return QStringLiteral("none");
  case Pulse::throbbing:
    return QStringLiteral("throbbing");
  case Pulse::fading:
    return QStringLiteral("fading");
  }
  return {};
}

QVariantMap contentVariant(const PanelRow& row) {
  return std::visit(
      Overloaded{
          [](const PortCard* card) { return portVariant(*card); },
          [](const StandaloneUSBCard* card) { return busCardVariant(*card); },
          [](const ChargerCard* card) { return chargerCardVariant(*card); },
          [&](const ExpandableRow* tree) { return treeRowVariant(*tree, row.volumeTools); },
      },
      row.source);
}

QVariantMap powerCardVariant(const PowerCard& card) {
  return {{"name", nameVariant(card.name)},
          {"rated", textOrNothing(card.rated)},
          {"port", textOrNothing(card.port)},
          {"portTooltip", tooltipText(card.portTooltip)},
          {"bar", part(card.bar, barVariant)},
          {"barColor", colorName(card.barColor)},
          {"barTooltip", tooltipText(card.barTooltip)},
          {"delivery", textOrNothing(card.delivery)},
          {"ratedMax", textOrNothing(card.ratedMax)},
          {"battery", part(card.battery, batteryVariant)}};
}

} // namespace tamberline
