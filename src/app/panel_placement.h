#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tamberline {

/// The position of the panel's top left corner. The panel is below or above its tray icon and
/// centred on it, or beside it if the icon is in a vertical bar. It is always inside the available
/// part of the icon's screen. Without an icon geometry, which some trays do not report, it is in
/// the corner next to the click.
QPoint panelPosition(const QRect& iconGeometry, const QPoint& click, const QSize& panel,
                     const QRect& availableScreen);

} // namespace tamberline
