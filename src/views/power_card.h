#pragma once

#include "model/power_records.h"
#include "views/bars.h"
#include "views/colors.h"

#include <optional>
#include <string>

namespace tamberline {

/// A label and a value on a rounded background.
struct InfoChip {
  std::string label = {};
  std::string value = {};
};

struct BatteryDetails {
  std::string icon = {};
  std::string label = {};
  std::string level = {};
  Color levelColor = Color::primary;
  InfoChip health = {};
  InfoChip cycles = {};
};

/// The adapter and the battery on one card. Parts that are not shown are absent.
struct PowerCard {
  std::string name = {};
  std::optional<std::string> rated = {};
  std::optional<std::string> port = {};
  std::string portTooltip = {};
  std::optional<TriBar> bar = {};
  Color barColor = Color::blue;
  std::string barTooltip = {};
  std::optional<std::string> delivery = {};
  std::optional<std::string> ratedMax = {};
  std::optional<BatteryDetails> battery = {};
};

PowerCard powerCard(const ChargerInfo& charger, const std::optional<BatteryInfo>& battery);

} // namespace tamberline
