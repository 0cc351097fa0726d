#pragma once

#include <QRectF>
#include <QSizeF>

#include <algorithm>

namespace tamberline {

/// The place of a symbol of this size in a square with this side: centred, and scaled down only if
/// it does not fit. Empty for a symbol without a size.
inline QRectF symbolPlacement(const QSizeF& symbol, double side) {
  if (symbol.isEmpty()) {
    return {};
  }
  const double scale = std::min(1.0, side / std::max(symbol.width(), symbol.height()));
  QRectF placement(QPointF(), symbol * scale);
  placement.moveCenter({side / 2, side / 2});
  return placement;
}

} // namespace tamberline
