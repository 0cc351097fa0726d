#include "controls/dot.h"

#include <QPainter>

namespace tamberline {

void Dot::setColor(const QColor& color) {
  if (color != color_) {
    color_ = color;
    emit colorChanged();
    update();
  }
}

void Dot::paint(QPainter* painter) {
  painter->setPen(Qt::NoPen);
  painter->setBrush(color_);
  painter->drawEllipse(boundingRect());
}

} // namespace tamberline
