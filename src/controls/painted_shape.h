#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// An item that paints one shape in one color.
class PaintedShape : public QQuickPaintedItem {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
  explicit PaintedShape(QQuickItem* parent) : QQuickPaintedItem(parent) { setAntialiasing(true); }

  QColor color() const { return color_; }
  void setColor(const QColor& color);

signals:
  void colorChanged();

private:
  QColor color_ = Qt::black;
};

} // namespace tamberline
