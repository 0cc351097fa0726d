#include "controls/stack.h"

#include <algorithm>

namespace tamberline {

Stack::Stack(QQuickItem* parent) : ChildLayout(parent) {
  connect(this, &Stack::bottomPaddingChanged, this, &ChildLayout::layOut);
}

void Stack::follow(QQuickItem* child) {
  connect(child, &QQuickItem::heightChanged, this, &ChildLayout::layOut);
  connect(child, &QQuickItem::widthChanged, this, &ChildLayout::layOut);
  connect(child, &QQuickItem::visibleChanged, this, &ChildLayout::layOut);
}

void Stack::place() {
  double top = 0;
  double width = 0;
  for (QQuickItem* child : childItems()) {
    if (child->isVisible() && child->height() > 0) {
      child->setY(top);
      top += child->height() + spacing();
      width = std::max(width, child->width());
    }
  }
  setImplicitSize(width, std::max(0.0, top - spacing()) + bottomPadding_);
}

} // namespace tamberline
