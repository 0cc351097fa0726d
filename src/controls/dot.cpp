#include "controls/dot.h"

#include <QPainter>

namespace tamberline {

void Dot::paint(QPainter* painter) {
  painter->setPen(Qt::NoPen);
  painter->setBrush(color());
  painter->drawEllipse(boundingRect());
}

} // namespace tamberline
