#include "ui/visible_items.h"

namespace tamberline {
namespace {

void append(QQuickItem* item, std::vector<QQuickItem*>& items) {
  if (!item->isVisible()) {
    return;
  }
  items.push_back(item);
  for (QQuickItem* child : item->childItems()) {
    append(child, items);
  }
}

} // namespace

std::vector<QQuickItem*> visibleItems(QQuickWindow& window) {
  std::vector<QQuickItem*> items;
  append(window.contentItem(), items);
  return items;
}

QRectF placeInWindow(const QQuickItem& item) {
  return item.mapRectToScene(QRectF(0, 0, item.width(), item.height()));
}

/// Not through the scene: what only turns on its spot stands still.
std::vector<QRectF> placesOfVisibleItems(QQuickWindow& window) {
  std::vector<QRectF> places = {QRectF(QPointF(), window.size())};
  for (const QQuickItem* item : visibleItems(window)) {
    places.emplace_back(item->x(), item->y(), item->width(), item->height());
  }
  return places;
}

} // namespace tamberline
