#pragma once

#include "views/view_enums.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <array>
#include <cstddef>

namespace tamberline {

/// The colour to draw for each `Color` of the panel's description.
class ColorSet {
  Q_GADGET
  QML_VALUE_TYPE(colorSet)

public:
  static constexpr std::size_t size = static_cast<std::size_t>(Color::SpeedTextAmber) + 1;

  Q_INVOKABLE QColor of(tamberline::views::Color color) const {
    return colors_.at(static_cast<std::size_t>(color));
  }
  void set(Color color, const QColor& value) {
    colors_.at(static_cast<std::size_t>(color)) = value;
  }

private:
  std::array<QColor, size> colors_;
};

} // namespace tamberline
