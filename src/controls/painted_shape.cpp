#include "controls/painted_shape.h"

namespace tamberline {

void PaintedShape::setColor(const QColor& color) {
  if (color != color_) {
    color_ = color;
    emit colorChanged();
    update();
  }
}

} // namespace tamberline
