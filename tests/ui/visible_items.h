#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QRectF>

#include <string>
#include <vector>

namespace tamberline {

/// All visible items, parents before their children.
std::vector<QQuickItem*> visibleItems(QQuickWindow& window);

/// The position of an item in its window.
QRectF placeInWindow(const QQuickItem& item);

/// The position of each visible item and of the window itself, one per line.
std::string placesOfVisibleItems(QQuickWindow& window);

} // namespace tamberline
