#include "controls/child_layout.h"

namespace tamberline {

ChildLayout::ChildLayout(QQuickItem* parent) : QQuickItem(parent) {
  connect(this, &ChildLayout::spacingChanged, this, &ChildLayout::layOut);
}

/// The children are released after this destructor and change then, so they are disconnected here.
ChildLayout::~ChildLayout() {
  for (QQuickItem* child : childItems()) {
    child->disconnect(this);
  }
}

void ChildLayout::componentComplete() {
  QQuickItem::componentComplete();
  layOut();
}

void ChildLayout::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickItem::geometryChange(newGeometry, oldGeometry);
  if (newGeometry.width() != oldGeometry.width()) {
    layOut();
  }
}

void ChildLayout::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change != ItemChildAddedChange && change != ItemChildRemovedChange) {
    return;
  }
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): this is Qt's interface.
  QQuickItem* const child = data.item;
  if (change == ItemChildAddedChange) {
    follow(child);
  } else {
    child->disconnect(this);
  }
  layOut();
}

void ChildLayout::layOut() {
  if (isLayingOut_ || !isComponentComplete()) {
    return;
  }
  isLayingOut_ = true;
  place();
  isLayingOut_ = false;
}

} // namespace tamberline
