#include "views/bars.h"

#include "base/text.h"
#include "i18n/loc.h"
#include "model/usb_records.h"

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

constexpr double visibleStep = 0.02;
constexpr std::string_view separator = "· ";

Color speedBarColor(double ratio) {
  if (ratio > nearlyFull) {
    return Color::Green;
  }
  return ratio >= nearlyHalf ? Color::Amber : Color::Orange;
}

/// Calm up to the maximum: drawing the whole budget is normal, and only speed is judged.
Color powerBarColor(double fraction, bool hasMaximum) {
  if (!hasMaximum) {
    return Color::Grey;
  }
  return fraction > 1 ? Color::Red : Color::Blue;
}

std::string labelledWatts(std::int64_t milliamperes, std::string_view label) {
  return wattsText(usbWatts(milliamperes)).append(" ").append(label);
}

} // namespace

bool TriBar::showsCableLayer() const {
  return cableFraction > usedFraction + visibleStep;
}

TriBar triBar(double usedFraction, double cableFraction) {
  return {std::clamp(usedFraction, 0.0, 1.0), std::clamp(cableFraction, 0.0, 1.0)};
}

SpeedBarRow speedBarRow(double usedGbps, double portMaxGbps, std::string speedLabel,
                        std::string portMaxLabel) {
  const double ratio = portMaxGbps > 0 ? std::clamp(usedGbps / portMaxGbps, 0.0, 1.0) : 0.0;
  return SpeedBarRow{
      .usedGbps = usedGbps,
      .portMaxGbps = portMaxGbps,
      .ratio = ratio,
      .color = speedBarColor(ratio),
      .speedLabel = std::move(speedLabel),
      .portMaxLabel = std::move(portMaxLabel),
      .tooltip = std::string(Loc::hintSpeedBar()),
  };
}

PowerBarRow powerBarRow(const PowerBarFacts& facts) {
  PowerBarRow row{
      .usedMa = facts.usedMa,
      .allocatedMa = facts.allocatedMa,
      .portMaxMa = facts.portMaxMa,
      .used = labelledWatts(facts.usedMa, facts.usedLabel),
      .tooltip = std::string(Loc::hintPowerBar()),
  };
  if (facts.allocatedMa != facts.usedMa) {
    row.allocated = std::string(separator) + labelledWatts(facts.allocatedMa, Loc::allocated());
  }
  if (facts.showPortMax) {
    row.portMax = labelledWatts(facts.portMaxMa, Loc::portMax());
  }
  // A missing maximum makes the bar full.
  const bool hasMaximum = facts.portMaxMa >= 2;
  const double whole = hasMaximum ? static_cast<double>(facts.portMaxMa) : 1.0;
  const double used = static_cast<double>(facts.usedMa) / whole;
  row.color = powerBarColor(used, hasMaximum);
  row.bar = triBar(used, static_cast<double>(facts.allocatedMa) / whole);
  return row;
}

/// In the panel, the separator before it has an item of its own, which vanishes at a line break.
QString PowerBarRow::allocatedLabel() const {
  const std::string shown = allocated.value_or("");
  return shownLabel(
      std::string_view(shown).substr(shown.starts_with(separator) ? separator.size() : 0));
}

std::string wattsText(double watts) {
  return fixedText(watts, 1) + " W";
}

} // namespace tamberline
