#include "views/power_card.h"

#include "i18n/loc.h"

namespace tamberline {
namespace {

/// The scale stops at three quarters: only a battery that reports itself full gets the full symbol.
std::string batteryIcon(const BatteryInfo& battery) {
  if (battery.isCharging) {
    return "battery.100percent.bolt";
  }
  if (battery.isFullyCharged) {
    return "battery.100percent";
  }
  if (battery.stateOfCharge < 16) {
    return "battery.0percent";
  }
  if (battery.stateOfCharge < 36) {
    return "battery.25percent";
  }
  return battery.stateOfCharge < 61 ? "battery.50percent" : "battery.75percent";
}

Color levelColor(const BatteryInfo& battery) {
  if (battery.isCharging || battery.isFullyCharged) {
    return Color::Green;
  }
  return battery.stateOfCharge < 21 ? Color::Red : Color::Primary;
}

std::string healthText(const BatteryInfo& battery) {
  if (battery.health.empty() || battery.maxCapacityPercent.empty()) {
    return battery.health + battery.maxCapacityPercent;
  }
  return battery.health + " " + battery.maxCapacityPercent;
}

BatteryDetails batteryDetails(const BatteryInfo& battery) {
  return BatteryDetails{
      .icon = batteryIcon(battery),
      .label = "Battery",
      .level = std::to_string(battery.stateOfCharge) + "%",
      .levelColor = levelColor(battery),
      .health = {"Health", healthText(battery)},
      .cycles = {"Cycles", std::to_string(battery.cycleCount)},
  };
}

std::string portText(const ChargerInfo& charger) {
  std::string text(Loc::usbcThunderbolt());
  if (charger.portLabel) {
    text.append(" · ").append(*charger.portLabel);
  }
  return text;
}

/// How the adapter's power is used; with a full battery the computer gets all of it.
std::optional<std::string> deliveryText(const ChargerInfo& charger,
                                        const std::optional<BatteryInfo>& battery) {
  if (!charger.currentWatts) {
    return std::nullopt;
  }
  if (charger.isCharging) {
    return Loc::chargingAtW(*charger.currentWatts);
  }
  if (battery && battery->isFullyCharged) {
    return Loc::poweringSystemW(*charger.currentWatts);
  }
  return std::nullopt;
}

std::optional<TriBar> deliveryBar(const ChargerInfo& charger) {
  if (!charger.currentWatts || !charger.ratedWatts) {
    return std::nullopt;
  }
  const auto rated = static_cast<double>(*charger.ratedWatts);
  return triBar(rated > 0 ? static_cast<double>(*charger.currentWatts) / rated : 0, 0);
}

} // namespace

PowerCard powerCard(const ChargerInfo& charger, const std::optional<BatteryInfo>& battery) {
  PowerCard card{
      .name = charger.name.empty() ? std::string(Loc::powerAdapter()) : charger.name,
      .rated = std::nullopt,
      .port = std::nullopt,
      .portTooltip = std::string(Loc::hintAdapterPort()),
      .bar = deliveryBar(charger),
      .barColor = charger.isCharging ? Color::Green : Color::Blue,
      .barTooltip = std::string(Loc::hintAdapter()),
      .delivery = deliveryText(charger, battery),
      .ratedMax = std::nullopt,
      .battery = battery ? std::optional(batteryDetails(*battery)) : std::nullopt,
  };
  if (charger.ratedWatts) {
    const std::string watts = std::to_string(*charger.ratedWatts);
    card.rated = watts + "W rated";
    card.ratedMax = std::string(Loc::ratedMax()).append(" ").append(watts).append("W max");
  }
  if (charger.connectsViaUSBC) {
    card.port = portText(charger);
  }
  return card;
}

} // namespace tamberline
