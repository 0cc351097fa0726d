#pragma once

#include "model/power_records.h"
#include "views/bars.h"
#include "views/shown_labels.h"
#include "views/view_enums.h"

#include <optional>
#include <string>

namespace tamberline {

/// A label and a value on a rounded background.
struct InfoChip {
  Q_GADGET
  QML_VALUE_TYPE(infoChip)
  Q_PROPERTY(QString label READ labelText CONSTANT)
  Q_PROPERTY(QString value READ valueText CONSTANT)

public:
  std::string label = {};
  std::string value = {};

  QString labelText() const { return shownLabel(label); }
  QString valueText() const { return shownLabel(value); }
};

struct BatteryDetails {
  Q_GADGET
  QML_VALUE_TYPE(batteryDetails)
  Q_PROPERTY(QString icon READ iconName CONSTANT)
  Q_PROPERTY(QString label READ labelText CONSTANT)
  Q_PROPERTY(QString level READ levelText CONSTANT)
  Q_PROPERTY(tamberline::views::Color levelColor MEMBER levelColor CONSTANT)
  Q_PROPERTY(tamberline::InfoChip health MEMBER health CONSTANT)
  Q_PROPERTY(tamberline::InfoChip cycles MEMBER cycles CONSTANT)

public:
  std::string icon = {};
  std::string label = {};
  std::string level = {};
  Color levelColor = Color::Primary;
  InfoChip health = {};
  InfoChip cycles = {};

  QString iconName() const { return shownSymbol(icon); }
  QString labelText() const { return shownLabel(label); }
  QString levelText() const { return shownLabel(level); }
};

/// The adapter and the battery on one card. Parts that are not shown are absent.
struct PowerCard {
  Q_GADGET
  QML_VALUE_TYPE(powerCard)
  Q_PROPERTY(tamberline::NameLabel name READ nameText CONSTANT)
  Q_PROPERTY(QString rated READ ratedLabel CONSTANT)
  Q_PROPERTY(QString port READ portLabel CONSTANT)
  Q_PROPERTY(QString portTooltip READ portTooltipLabel CONSTANT)
  Q_PROPERTY(bool hasBar READ hasBar CONSTANT)
  Q_PROPERTY(tamberline::TriBar bar READ shownBar CONSTANT)
  Q_PROPERTY(tamberline::views::Color barColor MEMBER barColor CONSTANT)
  Q_PROPERTY(QString barTooltip READ barTooltipLabel CONSTANT)
  Q_PROPERTY(QString delivery READ deliveryLabel CONSTANT)
  Q_PROPERTY(QString ratedMax READ ratedMaxLabel CONSTANT)
  Q_PROPERTY(bool hasBattery READ hasBattery CONSTANT)
  Q_PROPERTY(tamberline::BatteryDetails battery READ shownBattery CONSTANT)

public:
  std::string name = {};
  std::optional<std::string> rated = {};
  std::optional<std::string> port = {};
  std::string portTooltip = {};
  std::optional<TriBar> bar = {};
  Color barColor = Color::Blue;
  std::string barTooltip = {};
  std::optional<std::string> delivery = {};
  std::optional<std::string> ratedMax = {};
  std::optional<BatteryDetails> battery = {};

  NameLabel nameText() const { return nameLabel(name); }
  QString ratedLabel() const { return labelOrEmpty(rated); }
  QString portLabel() const { return labelOrEmpty(port); }
  QString portTooltipLabel() const { return shownTooltip(portTooltip); }
  bool hasBar() const { return bar.has_value(); }
  TriBar shownBar() const { return bar.value_or(TriBar{}); }
  QString barTooltipLabel() const { return shownTooltip(barTooltip); }
  QString deliveryLabel() const { return labelOrEmpty(delivery); }
  QString ratedMaxLabel() const { return labelOrEmpty(ratedMax); }
  bool hasBattery() const { return battery.has_value(); }
  BatteryDetails shownBattery() const { return battery.value_or(BatteryDetails{}); }
};

PowerCard powerCard(const ChargerInfo& charger, const std::optional<BatteryInfo>& battery);

} // namespace tamberline
