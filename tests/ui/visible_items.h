#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QRectF>

#include <string>
#include <vector>

namespace tamberline {

/// All items that are seen, parents before their children.
std::vector<QQuickItem*> visibleItems(QQuickWindow& window);

/// Where an item stands in its window.
QRectF placeInWindow(const QQuickItem& item);

/// The place of each item that is seen, and of the window itself, one a line.
std::string placesOfVisibleItems(QQuickWindow& window);

} // namespace tamberline
