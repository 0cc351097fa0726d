#include "views/port_card.h"

#include "base/look_up.h"
#include "base/text.h"
#include "i18n/loc.h"

#include <utility>

namespace tamberline {
namespace {

/// Whole watts without decimals, others with one: "15 W", "4.5 W". A limit, which the sign before
/// it says in every language.
std::string capacityText(std::int64_t limitMa) {
  std::string number = fixedText(usbWatts(limitMa), 1);
  if (number.ends_with(".0")) {
    number.resize(number.size() - 2);
  }
  return number + " W";
}

std::optional<std::int64_t> chargerWatts(const TreeNode& node) {
  for (const TreeNode& child : node.children) {
    if (const auto* charger = std::get_if<TreeNode::Charger>(&child.kind)) {
      return charger->charger.currentWatts;
    }
  }
  return std::nullopt;
}

void appendControllerBadges(const HPMPort& port, std::vector<PortBadge>& badges) {
  if (port.hasVideo) {
    badges.push_back(
        {PortBadge::Kind::video,
         {std::string(Loc::video()), std::nullopt, Color::Purple, std::string(Loc::hintVideo())},
         {}});
  }
  if (const auto label = port.cableLabel()) {
    badges.push_back({PortBadge::Kind::cable,
                      {*label, std::nullopt, Color::Secondary, std::string(Loc::hintCable())},
                      {}});
  }
}

std::vector<PortBadge> portBadges(const TreeNode& node, const ThunderboltBus& bus,
                                  const PortFacts& facts) {
  std::vector<PortBadge> badges;
  const std::int64_t limitMa = lookUp(facts.portCurrentLimitMa, bus.busNumber).value_or(0);
  if (limitMa != 0) {
    const std::string capacity = capacityText(limitMa);
    badges.push_back({PortBadge::Kind::capacity,
                      {"≤ " + capacity, std::nullopt, std::nullopt, Loc::hintPortCapacity(limitMa)},
                      Loc::suppliesUpTo(capacity)});
  }
  if (const auto watts = chargerWatts(node)) {
    const std::string text = std::to_string(*watts) + "W";
    badges.push_back({PortBadge::Kind::charger,
                      {text, "bolt.fill", Color::Green, std::string(Loc::hintChargerWatts())},
                      Loc::chargerDelivers(text)});
  } else if (const HPMPort* port = usbcController(facts.hpmPorts, bus.busNumber)) {
    appendControllerBadges(*port, badges);
  }
  if (std::string speed = bus.port.badgeText(); !speed.empty()) {
    std::string spoken = Loc::linkUpTo(speed);
    badges.push_back(
        {PortBadge::Kind::speed,
         {std::move(speed), std::nullopt, Color::Accent, std::string(Loc::hintSpeedBadge())},
         std::move(spoken)});
  }
  return badges;
}

/// Empty if the only socket has the number of the port, or if the sockets are unknown.
std::string receptaclesText(const ThunderboltBus& bus) {
  std::vector<std::string> numbers;
  for (const ThunderboltReceptacle& receptacle : bus.receptacles) {
    if (receptacle.number) {
      numbers.push_back(std::to_string(*receptacle.number));
    }
  }
  if (numbers.empty() || numbers == std::vector{std::to_string(bus.busNumber)}) {
    return {};
  }
  return numbers.size() == 1 ? Loc::receptacle(numbers.front())
                             : Loc::receptacles(joined(numbers, ", "));
}

std::optional<std::string> titleNote(const ThunderboltBus& bus) {
  std::vector<std::string> parts = {receptaclesText(bus),
                                    bus.port.link ? bus.port.link->label() : ""};
  std::erase(parts, "");
  return parts.empty() ? std::nullopt : std::optional(joined(parts, " · "));
}

MeasuredPower measuredPower(const PortPowerOut& power) {
  MeasuredPower row{
      .used = wattsText(power.usedWatts).append(" ").append(Loc::used()),
      .allocated = std::nullopt,
      .voltageCurrent = fixedText(power.volts, 1) + " V · " + fixedText(power.amps, 2) + " A",
      .bar = {},
      .tooltip = std::string(Loc::hintMeasuredPower()),
  };
  if (power.allocatedWatts > 0) {
    row.allocated = wattsText(power.allocatedWatts).append(" ").append(Loc::allocated());
    row.bar = triBar(power.usedWatts / power.allocatedWatts, 0);
  }
  return row;
}

AgreedPowerRow agreedPowerRow(const AgreedPower& power) {
  return {
      .power = power,
      .watts = wattsText(power.watts()).append(" ").append(Loc::agreed()),
      .voltageCurrent = fixedText(power.volts, 1) + " V · " + fixedText(power.amps, 2) + " A",
      .tooltip = std::string(Loc::hintAgreedPower()),
  };
}

std::optional<PartnerNotice> partnerNotice(const HPMPort& port) {
  const auto notice = [](std::string_view icon, std::string_view title, std::string_view detail) {
    return PartnerNotice{std::string(icon), std::string(title), std::string(detail)};
  };
  switch (port.partner) {
  case PortPartner::none:
    return std::nullopt;
  case PortPartner::audio:
    return notice("headphones", Loc::partnerAudio(), Loc::partnerAudioDetail());
  case PortPartner::debug:
    return notice("cable.connector", Loc::partnerDebug(), Loc::partnerDebugDetail());
  case PortPartner::video:
    return notice("display", Loc::partnerVideo(),
                  port.hasVideo ? Loc::partnerVideoActive() : Loc::partnerVideoIdle());
  case PortPartner::source:
    return notice("powerplug.fill", Loc::partnerSource(), Loc::partnerSourceDetail());
  case PortPartner::unknown:
    return notice("cable.connector", Loc::partnerUnknown(), Loc::partnerUnknownDetail());
  }
  return std::nullopt;
}

/// The total has no separate allocation.
std::optional<PowerBarRow> portPowerBar(std::int64_t usedMa, std::optional<std::int64_t> limitMa) {
  if (!limitMa || usedMa < 1) {
    return std::nullopt;
  }
  PowerBarRow row = powerBarRow({.usedMa = usedMa,
                                 .allocatedMa = usedMa,
                                 .portMaxMa = *limitMa,
                                 .usedLabel = Loc::portTotal()});
  row.tooltip = Loc::hintPortPowerBar();
  return row;
}

PortHeader portHeader(const TreeNode& node, const ThunderboltBus& bus, const PortFacts& facts) {
  const bool inUse = bus.port.isConnected() || node.hasChildren();
  PortHeader header{
      .inUse = inUse,
      .dotTooltip = std::string(inUse ? Loc::hintDotInUse() : Loc::nothingAttached()),
      .title = bus.displayName(),
      .titleNote = titleNote(bus),
      .badges = portBadges(node, bus, facts),
  };
  if (const std::int64_t itemCount = node.attachedItemCount(); itemCount > 0) {
    header.itemCount = Loc::items(itemCount);
    header.itemCountTooltip = Loc::hintItemCount();
  }
  return header;
}

PortPower portPower(const TreeNode& node, std::int64_t busNumber, const PortFacts& facts) {
  PortPower power{.ratedBar = portPowerBar(node.aggregatedUSBPower().usedMa,
                                           lookUp(facts.portCurrentLimitMa, busNumber))};
  if (const auto measured = lookUp(facts.portPowerOut, busNumber)) {
    power.measured = measuredPower(*measured);
  }
  const HPMPort* controller = usbcController(facts.hpmPorts, busNumber);
  if (controller != nullptr && controller->agreedPower) {
    power.agreed = agreedPowerRow(*controller->agreedPower);
  }
  return power;
}

} // namespace

QVariantList PortHeader::badgeList() const {
  QVariantList list;
  for (const PortBadge& badge : badges) {
    list.push_back(QVariant::fromValue(badge.badge));
  }
  return list;
}

QString PortHeader::detailsText() const {
  std::vector<std::string> lines;
  for (const DetailLine& detail : details) {
    lines.push_back(detail.label());
  }
  return shownParagraphs(joined(lines, "\n"), maxTooltipLength);
}

PortCard portCard(const TreeNode& node, const ThunderboltBus& bus, const PortFacts& facts) {
  PortCard card{
      .id = node.id,
      .header = portHeader(node, bus, facts),
      .power = portPower(node, bus.busNumber, facts),
      .rows = expandableRows(node.children, 0),
  };
  const HPMPort* controller = usbcController(facts.hpmPorts, bus.busNumber);
  if (!node.hasChildren()) {
    card.partner = controller == nullptr ? std::nullopt : partnerNotice(*controller);
  }
  if (!node.hasChildren() && !card.partner) {
    card.nothingAttached = Loc::nothingAttached();
  }
  if (controller != nullptr) {
    card.header.details = portDetailLines(*controller, facts.charging);
  }
  return card;
}

} // namespace tamberline
