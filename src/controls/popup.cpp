#include "controls/popup.h"

#include <algorithm>

namespace tamberline {
namespace {

constexpr double gap = 8;    // with the arrow, between the box and its target
constexpr double margin = 8; // between the box and the edge of the panel

} // namespace

Popup::Popup(QQuickItem* parent) : QQuickItem(parent) {
  setVisible(false);
}

void Popup::setTarget(QQuickItem* target) {
  setVisible(target != nullptr); // target_ is already null if its item was deleted
  if (target == target_) {
    return;
  }
  target_ = target;
  polish();
  emit targetChanged();
}

void Popup::setBeyond(QQuickItem* beyond) {
  if (beyond != beyond_) {
    beyond_ = beyond;
    polish();
    emit beyondChanged();
  }
}

QRectF Popup::placeOf(const QQuickItem& item) const {
  return item.mapRectToItem(parentItem(), QRectF(0, 0, item.width(), item.height()));
}

void Popup::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickItem::geometryChange(newGeometry, oldGeometry);
  if (newGeometry.size() != oldGeometry.size()) {
    polish();
  }
}

void Popup::updatePolish() {
  if (target_ == nullptr || parentItem() == nullptr) {
    return;
  }
  const QRectF item = placeOf(*target_);
  const double lowerEdge =
      beyond_ == nullptr ? item.bottom() : std::max(item.bottom(), placeOf(*beyond_).bottom());
  const double rightmost = std::max(margin, parentItem()->width() - width() - margin);
  const double lowest = parentItem()->height() - height() - margin;
  const double below = lowerEdge + gap;
  const double above = item.top() - gap - height();
  isBelow_ = below <= lowest;
  setPosition({std::clamp(item.center().x() - width() / 2, margin, rightmost),
               isBelow_ ? below : std::max(margin, above)});
  arrowX_ = std::clamp(item.center().x() - x(), margin, std::max(margin, width() - margin));
  emit placed();
}

} // namespace tamberline
