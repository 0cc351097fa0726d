#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tamberline {

/// Where the panel's top left corner goes so that the panel stands beside its tray icon: below or
/// above it and centred on it, or at its side when the icon is in a vertical bar; always inside the
/// available part of the icon's screen. Without an icon geometry, which some trays do not tell, in
/// the corner next to the click.
QPoint panelPosition(const QRect& iconGeometry, const QPoint& click, const QSize& panel,
                     const QRect& availableScreen);

} // namespace tamberline
