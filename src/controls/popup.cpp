#include "controls/popup.h"

#include <algorithm>

namespace tamberline {
namespace {

constexpr double gap = 4;    // between the box and its target
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
  const QRectF item =
      target_->mapRectToItem(parentItem(), QRectF(0, 0, target_->width(), target_->height()));
  const double rightmost = std::max(margin, parentItem()->width() - width() - margin);
  const double lowest = parentItem()->height() - height() - margin;
  const double below = item.bottom() + gap;
  const double above = item.top() - gap - height();
  setPosition({std::clamp(item.center().x() - width() / 2, margin, rightmost),
               below <= lowest ? below : std::max(margin, above)});
}

} // namespace tamberline
