#pragma once

#include <QPoint>
#include <QRect>
#include <Qt>

#include <optional>

namespace tamberline {

/// The corner of a screen that is nearest to a position on it. Without a position, the upper right
/// corner, where most desktops have their tray.
Qt::Corner cornerNextTo(const std::optional<QPoint>& place, const QRect& screen);

/// The same for the screen at that position.
Qt::Corner screenCornerNextTo(const std::optional<QPoint>& place);

} // namespace tamberline
