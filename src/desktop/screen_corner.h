#pragma once

#include <QPoint>
#include <QRect>
#include <Qt>

#include <optional>

namespace tamberline {

/// The corner of a screen that a place on it is next to. Without a place the upper right one, where
/// most desktops have their tray.
Qt::Corner cornerNextTo(const std::optional<QPoint>& place, const QRect& screen);

/// The same on the screen that has the place.
Qt::Corner screenCornerNextTo(const std::optional<QPoint>& place);

} // namespace tamberline
