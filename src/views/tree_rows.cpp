#include "views/tree_rows.h"

#include "base/overloaded.h"
#include "base/text.h"
#include "i18n/loc.h"
#include "views/device_icons.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace tamberline {
namespace {

constexpr double thunderboltMaxGbps = 40.0; // the same on every port, whatever the port reports
constexpr double fullThunderboltRatio = 0.99;
constexpr double fullSpeedFraction = 0.95;

bool isHub(const USBDevice& device, bool hasChildren) {
  return device.name == unnamedHub || hasChildren;
}

/// Such as "4.5W"; a draw below 1 mA is not shown.
std::optional<std::string> compactWatts(std::int64_t usedMa, std::string_view suffix) {
  if (usedMa < 1) {
    return std::nullopt;
  }
  return fixedText(usbWatts(usedMa), 1).append("W").append(suffix);
}

std::string maximumLabel(double maxGbps, bool isAtMaximum) {
  if (isAtMaximum) {
    return std::string(Loc::atPortMax());
  }
  return generalText(maxGbps).append(" Gb/s ").append(Loc::portMax());
}

std::optional<Badge> modeBadge(const ThunderboltDevice& device) {
  std::string label = device.modeLabel();
  if (label.empty()) {
    return std::nullopt;
  }
  return Badge{std::move(label), std::nullopt, Color::Accent, std::string(Loc::hintTBMode())};
}

std::optional<SpeedBarRow> thunderboltSpeedBar(const ThunderboltDevice& device) {
  if (device.upstreamSpeedGbps() < 1) {
    return std::nullopt;
  }
  const auto usedGbps = static_cast<double>(device.upstreamSpeedGbps() * device.upstreamLanes());
  const bool isAtMaximum = std::min(usedGbps / thunderboltMaxGbps, 1.0) >= fullThunderboltRatio;
  return speedBarRow(usedGbps, thunderboltMaxGbps, device.upstreamLabel(),
                     maximumLabel(thunderboltMaxGbps, isAtMaximum));
}

std::optional<LinkNote> linkNote(const ThunderboltDevice& device) {
  if (!device.link && !device.isAuthorized) {
    return std::nullopt;
  }
  const TrueLink link = device.link.value_or(TrueLink());
  return LinkNote{.link = link, .text = link.label(), .isAuthorized = device.isAuthorized};
}

std::optional<Badge> warningBadge(const ThunderboltDevice& device) {
  if (device.isAuthorized.value_or(true)) {
    return std::nullopt;
  }
  return Badge{std::string(Loc::notAuthorized()), std::nullopt, Color::Orange,
               std::string(Loc::hintNotAuthorized())};
}

TBDeviceRow tbDeviceRow(const ThunderboltDevice& device, const AggregatedPower& power) {
  return TBDeviceRow{
      .icon = iconFor(device),
      .name = device.name,
      .modeBadge = modeBadge(device),
      .warningBadge = warningBadge(device),
      .ratedDraw = compactWatts(power.usedMa, ""),
      .speedBar = thunderboltSpeedBar(device),
      .link = linkNote(device),
  };
}

Color speedTextColor(double fraction) {
  if (fraction >= nearlyFull) {
    return Color::Green;
  }
  return fraction >= nearlyHalf ? Color::Amber : Color::Orange;
}

std::optional<SpeedNote> slowLinkNote(const TreeNode::USBDeviceEntry& entry) {
  if (auto note = entry.device.trueSpeedNote(entry.busMaxGbps)) {
    return SpeedNote{std::string(Loc::hintWhySlow()), std::move(*note)};
  }
  return std::nullopt;
}

std::optional<HubTotal> hubTotal(const AggregatedPower& power, bool hasChildren) {
  std::optional<std::string> text = compactWatts(power.usedMa, " total");
  if (!hasChildren || !text) {
    return std::nullopt;
  }
  return HubTotal{std::move(*text), Loc::hubTotalRatedDraw(wattsText(usbWatts(power.usedMa)))};
}

std::optional<SpeedBarRow> usbSpeedBar(const TreeNode::USBDeviceEntry& entry) {
  const USBDevice& device = entry.device;
  if (device.speedGbps() <= 0) {
    return std::nullopt;
  }
  const bool isAtMaximum = device.speedFraction(entry.busMaxGbps) >= fullSpeedFraction;
  return speedBarRow(device.speedGbps(), entry.busMaxGbps, device.speedDetailLabel(),
                     maximumLabel(entry.busMaxGbps, isAtMaximum));
}

/// A hub shows its own draw, which says nothing about the port's max.
std::optional<PowerBarRow> ratedDrawBar(const TreeNode::USBDeviceEntry& entry, bool hub) {
  const std::int64_t usedMa = entry.device.busPowerUsed.value_or(0);
  if (usedMa < 1) {
    return std::nullopt;
  }
  return powerBarRow({.usedMa = usedMa,
                      .allocatedMa = entry.device.busPower.value_or(usedMa),
                      .portMaxMa = entry.portMa,
                      .usedLabel = hub ? Loc::ownDrawRated() : Loc::rated(),
                      .showPortMax = !hub});
}

std::optional<std::string> noteOn(const USBDevice& device) {
  std::vector<std::string> parts;
  if (device.extraCurrentMa.value_or(0) >= 1) {
    parts.push_back(Loc::extraCurrent(*device.extraCurrentMa));
  }
  if (device.isBuiltIn.value_or(false)) {
    parts.emplace_back(Loc::builtIn());
  }
  if (device.isTunneled.value_or(false)) {
    parts.emplace_back(Loc::throughUSB4Tunnel());
  }
  return parts.empty() ? std::nullopt : std::optional(joined(parts, " · "));
}

USBDeviceDetailRow usbDeviceDetailRow(const TreeNode::USBDeviceEntry& entry,
                                      const AggregatedPower& power, bool hasChildren) {
  const USBDevice& device = entry.device;
  USBDeviceDetailRow row{
      .icon = iconFor(device),
      .name = device.shownName(),
      .speedText = device.speedShortLabel(),
      .speedColor = speedTextColor(device.speedFraction(entry.busMaxGbps)),
      .speedTooltip = std::string(Loc::hintDeviceSpeed()),
      .speedNote = slowLinkNote(entry),
      .hubTotal = hubTotal(power, hasChildren),
      .speedBar = usbSpeedBar(entry),
      .powerBar = ratedDrawBar(entry, isHub(device, hasChildren)),
  };
  std::transform(device.volumes.begin(), device.volumes.end(), std::back_inserter(row.volumes),
                 volumeRow);
  row.note = noteOn(device);
  return row;
}

ChargingOnlyRow chargingOnlyRow() {
  return ChargingOnlyRow{
      .title = std::string(Loc::chargingOnly()),
      .detail = std::string(Loc::chargingOnlyDetail()),
      .badge = {std::string(Loc::noData()), std::nullopt, Color::Orange,
                std::string(Loc::hintNoData())},
  };
}

ExpandableRow::Content contentOf(const TreeNode& node) {
  using Content = ExpandableRow::Content;
  return std::visit(
      Overloaded{
          [](const TreeNode::TBPort&) -> Content {
            throw std::logic_error("a port is shown as a card, never as a row");
          },
          [&](const TreeNode::TBDevice& entry) -> Content {
            return tbDeviceRow(entry.device, node.aggregatedUSBPower());
          },
          [&](const TreeNode::USBBusEntry& entry) -> Content {
            return usbBusHeaderRow(entry.bus, node.aggregatedUSBPower());
          },
          [&](const TreeNode::USBDeviceEntry& entry) -> Content {
            return usbDeviceDetailRow(entry, node.aggregatedUSBPower(), node.hasChildren());
          },
          [](const TreeNode::Charger& entry) -> Content { return chargerRow(entry.charger); },
          [](const TreeNode::ChargingOnly&) -> Content { return chargingOnlyRow(); },
      },
      node.kind);
}

Tint tintOf(const TreeNode& node) {
  return std::visit(
      Overloaded{
          [](const TreeNode::TBPort&) { return Tint{}; },
          [](const TreeNode::TBDevice&) {
            return Tint{Color::Accent, 0.05};
          },
          [](const TreeNode::USBBusEntry&) {
            return Tint{Color::Grey, 0.06};
          },
          [&](const TreeNode::USBDeviceEntry&) {
            return node.hasChildren() ? Tint{Color::Grey, 0.06} : Tint{Color::TextBackground, 0.5};
          },
          [](const TreeNode::Charger&) {
            return Tint{Color::Yellow, 0.07};
          },
          [](const TreeNode::ChargingOnly&) {
            return Tint{Color::Yellow, 0.07};
          },
      },
      node.kind);
}

} // namespace

std::vector<ExpandableRow> expandableRows(const std::vector<TreeNode>& siblings, int depth) {
  std::vector<ExpandableRow> rows;
  rows.reserve(siblings.size());
  for (const TreeNode& node : siblings) {
    const bool isTBDevice = std::holds_alternative<TreeNode::TBDevice>(node.kind);
    rows.push_back(ExpandableRow{
        .id = node.id,
        .depth = depth,
        .isLast = &node == &siblings.back(),
        .startsExpanded = isTBDevice && node.hasChildren(),
        .tint = tintOf(node),
        .content = contentOf(node),
        .children = expandableRows(node.children, depth + 1),
    });
  }
  return rows;
}

USBBusHeaderRow usbBusHeaderRow(const USBBus& bus, const AggregatedPower& power) {
  USBBusHeaderRow row{.name = bus.displayName(), .ratedDraw = compactWatts(power.usedMa, " rated")};
  if (!bus.hostController.empty()) {
    row.note = bus.hostController;
  }
  return row;
}

NameLabel TBDeviceRow::nameText() const {
  return nameLabel(name, link ? std::optional(link->text) : std::nullopt);
}

Color USBDeviceDetailRow::shownSpeedColor() const {
  return speedColor == Color::Amber ? Color::SpeedTextAmber : speedColor;
}

std::string ChargerRow::shownName() const {
  return trimmed(name).empty() ? std::string(Loc::powerAdapter()) : name;
}

QString ChargerRow::tooltipText() const {
  return isCharging ? QString() : shownTooltip(Loc::hintNotCharging());
}

ChargerRow chargerRow(const ChargerInfo& charger) {
  ChargerRow row{.name = charger.name, .rated = std::nullopt, .isCharging = charger.isCharging};
  if (charger.ratedWatts) {
    row.rated = std::to_string(*charger.ratedWatts).append(" W ").append(Loc::rated());
  }
  return row;
}

} // namespace tamberline
