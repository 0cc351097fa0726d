#pragma once

#include "controls/painted_shape.h"

#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// A filled circle as large as the item, round at any scale.
class Dot : public tamberline::PaintedShape {
  Q_OBJECT
  QML_ELEMENT

public:
  explicit Dot(QQuickItem* parent = nullptr) : PaintedShape(parent) {}

  void paint(QPainter* painter) override;
};

} // namespace tamberline
