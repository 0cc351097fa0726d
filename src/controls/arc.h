#pragma once

#include "controls/painted_shape.h"

#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Three quarters of a circle, as large as fits into the item; rotated, it shows progress.
class Arc : public tamberline::PaintedShape {
  Q_OBJECT
  QML_ELEMENT

public:
  explicit Arc(QQuickItem* parent = nullptr) : PaintedShape(parent) {}

  void paint(QPainter* painter) override;
};

} // namespace tamberline
