#include "base/overloaded.h"
#include "inspect/document_parts.h"

#include <string_view>

namespace tamberline {
namespace {

Document colorOrNull(const std::optional<Color>& color) {
  return color ? Document(nameOf(*color)) : Document(nullptr);
}

Document describe(const Badge& badge) {
  return {
      {"text", badge.text},
      {"icon", orNull(badge.icon)},
      {"color", colorOrNull(badge.color)},
      {"tooltip", badge.tooltip},
  };
}

std::string_view nameOf(PortBadge::Kind kind) {
  switch (kind) {
  case PortBadge::Kind::capacity:
    return "capacity";
  case PortBadge::Kind::charger:
    return "charger";
  case PortBadge::Kind::video:
    return "video";
  case PortBadge::Kind::cable:
    return "cable";
  case PortBadge::Kind::speed:
    return "speed";
  }
  return "";
}

Document describe(const PortBadge& badge) {
  Document document = {{"kind", nameOf(badge.kind)}};
  document.update(describe(badge.badge));
  return document;
}

Document describe(const TriBar& bar) {
  return {{"usedFraction", bar.usedFraction}, {"cableFraction", bar.cableFraction}};
}

Document describe(const SpeedBarRow& bar) {
  return {
      {"usedGbps", bar.usedGbps},     {"portMaxGbps", bar.portMaxGbps},
      {"ratio", bar.ratio},           {"color", nameOf(bar.color)},
      {"speedLabel", bar.speedLabel}, {"portMaxLabel", bar.portMaxLabel},
      {"tooltip", bar.tooltip},
  };
}

Document describe(const PowerBarRow& row) {
  return {
      {"usedMa", row.usedMa},
      {"allocatedMa", row.allocatedMa},
      {"portMaxMa", row.portMaxMa},
      {"used", row.used},
      {"allocated", orNull(row.allocated)},
      {"portMax", orNull(row.portMax)},
      {"bar", describe(row.bar)},
      {"tooltip", row.tooltip},
  };
}

Document describe(const MeasuredPower& power) {
  return {
      {"used", power.used},
      {"allocated", orNull(power.allocated)},
      {"voltageCurrent", power.voltageCurrent},
      {"bar", describe(power.bar)},
      {"tooltip", power.tooltip},
  };
}

Document describe(const AgreedPowerRow& row) {
  Document document = describe(row.power);
  document["text"] = row.watts;
  document["voltageCurrent"] = row.voltageCurrent;
  document["tooltip"] = row.tooltip;
  return document;
}

Document describe(const VolumeRow& volume) {
  return {{"label", volume.label}, {"name", volume.name}, {"mountPoint", volume.mountPoint}};
}

Document describe(const SpeedNote& note) {
  return {{"title", note.title}, {"note", note.note}};
}

Document describe(const HubTotal& total) {
  return {{"text", total.text}, {"tooltip", total.tooltip}};
}

Document describe(const LinkNote& note) {
  Document document = describeLink(note.link, note.isAuthorized);
  document["text"] = note.text;
  return document;
}

template <typename Part>
Document describeOrNull(const std::optional<Part>& part) {
  return part ? describe(*part) : Document(nullptr);
}

Document describe(const TBDeviceRow& row) {
  return {
      {"name", row.name},
      {"modeBadge", describeOrNull(row.modeBadge)},
      {"ratedDraw", orNull(row.ratedDraw)},
      {"speedBar", describeOrNull(row.speedBar)},
      {"link", describeOrNull(row.link)},
  };
}

Document describe(const USBBusHeaderRow& row) {
  return {{"name", row.name}, {"ratedDraw", orNull(row.ratedDraw)}};
}

Document describe(const USBDeviceDetailRow& row) {
  return {
      {"icon", row.icon},
      {"name", row.name},
      {"speedText", row.speedText},
      {"speedColor", nameOf(row.speedColor)},
      {"speedNote", describeOrNull(row.speedNote)},
      {"hubTotal", describeOrNull(row.hubTotal)},
      {"speedBar", describeOrNull(row.speedBar)},
      {"powerBar", describeOrNull(row.powerBar)},
      {"volumes", listOf(row.volumes, [](const VolumeRow& volume) { return describe(volume); })},
  };
}

Document describe(const ChargerRow& row) {
  return {{"name", row.name}, {"rated", orNull(row.rated)}, {"isCharging", row.isCharging}};
}

Document describe(const ChargingOnlyRow& row) {
  return {{"title", row.title}, {"detail", row.detail}, {"badge", describe(row.badge)}};
}

std::string_view rowKind(const ExpandableRow::Content& content) {
  return std::visit(Overloaded{
                        [](const TBDeviceRow&) { return "tbDevice"; },
                        [](const USBBusHeaderRow&) { return "usbBus"; },
                        [](const USBDeviceDetailRow&) { return "usbDevice"; },
                        [](const ChargerRow&) { return "charger"; },
                        [](const ChargingOnlyRow&) { return "chargingOnly"; },
                    },
                    content);
}

Document describe(const ExpandableRow& row) {
  Document document = {
      {"row", rowKind(row.content)},
      {"id", row.id},
      {"depth", row.depth},
      {"isLast", row.isLast},
      {"hasChildren", !row.children.empty()},
      {"startsExpanded", row.startsExpanded},
      {"tint", {{"color", nameOf(row.tint.color)}, {"opacity", row.tint.opacity}}},
  };
  document.update(std::visit([](const auto& content) { return describe(content); }, row.content));
  document["children"] =
      listOf(row.children, [](const ExpandableRow& child) { return describe(child); });
  return document;
}

Document describe(const std::vector<ExpandableRow>& rows) {
  return listOf(rows, [](const ExpandableRow& row) { return describe(row); });
}

Document describe(const PortCard& card) {
  return {
      {"card", "port"},
      {"id", card.id},
      {"inUse", card.header.inUse},
      {"dotTooltip", card.header.dotTooltip},
      {"title", card.header.title},
      {"itemCount", orNull(card.header.itemCount)},
      {"itemCountTooltip", orNull(card.header.itemCountTooltip)},
      {"badges",
       listOf(card.header.badges, [](const PortBadge& badge) { return describe(badge); })},
      {"measuredPower", describeOrNull(card.power.measured)},
      {"agreedPower", describeOrNull(card.power.agreed)},
      {"portPowerBar", describeOrNull(card.power.ratedBar)},
      {"rows", describe(card.rows)},
      {"nothingAttached", orNull(card.nothingAttached)},
  };
}

Document describe(const StandaloneUSBCard& card) {
  return {
      {"card", "bus"},
      {"id", card.id},
      {"header", describe(card.header)},
      {"rows", describe(card.rows)},
      {"nothingAttached", orNull(card.nothingAttached)},
  };
}

Document describe(const ChargerCard& card) {
  return {
      {"card", "charger"},
      {"id", card.id},
      {"title", card.header.title},
      {"port", card.header.port},
      {"portTooltip", card.header.portTooltip},
      {"row", describe(card.row)},
  };
}

std::string_view nameOf(Panel::State state) {
  switch (state) {
  case Panel::State::Error:
    return "error";
  case Panel::State::Scanning:
    return "scanning";
  case Panel::State::Empty:
    return "empty";
  case Panel::State::Cards:
    return "cards";
  }
  return "";
}

} // namespace

Document describe(const Panel& panel) {
  return {
      {"state", nameOf(panel.state)},
      {"message", orNull(panel.message)},
      {"cards", listOf(panel.cards,
                       [](const Card& card) {
                         return std::visit([](const auto& one) { return describe(one); }, card);
                       })},
  };
}

} // namespace tamberline
