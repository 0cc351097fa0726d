#pragma once

#include "views/shown_labels.h"
#include "views/view_enums.h"

#include <optional>
#include <string>

namespace tamberline {

/// A small coloured label. Not drawn if the text is empty.
struct Badge {
  Q_GADGET
  QML_VALUE_TYPE(badge)
  Q_PROPERTY(QString text READ textLabel CONSTANT)
  Q_PROPERTY(QString icon READ iconName CONSTANT)
  Q_PROPERTY(tamberline::views::Color color READ shownColor CONSTANT)
  Q_PROPERTY(bool hasBackground READ hasBackground CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)

public:
  std::string text = {};
  std::optional<std::string> icon = {};
  std::optional<Color> color = {}; // if absent: plain text, no background
  std::string tooltip = {};

  QString textLabel() const { return shownLabel(text); }
  QString iconName() const { return shownSymbol(icon.value_or("")); }
  Color shownColor() const { return color.value_or(Color::Secondary); }
  bool hasBackground() const { return color.has_value(); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const Badge&, const Badge&) = default;
};

} // namespace tamberline
