#include "ui/visible_items.h"

#include <sstream>

namespace tamberline {
namespace {

void append(QQuickItem* item, std::vector<QQuickItem*>& items) {
  if (!item->isVisible() || item->opacity() == 0) {
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

/// Without transformations: an item that only rotates in place has not moved.
std::string placesOfVisibleItems(QQuickWindow& window) {
  std::ostringstream places;
  places << window.width() << " x " << window.height() << "\n";
  for (const QQuickItem* item : visibleItems(window)) {
    places << item->metaObject()->className() << " " << item->x() << " " << item->y() << " "
           << item->width() << " x " << item->height() << "\n";
  }
  return places.str();
}

} // namespace tamberline
