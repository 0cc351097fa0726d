#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// A filled circle as large as the item, round at any scale.
class Dot : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
  explicit Dot(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) { setAntialiasing(true); }

  QColor color() const { return color_; }
  void setColor(const QColor& color);

  void paint(QPainter* painter) override;

signals:
  void colorChanged();

private:
  QColor color_ = Qt::black;
};

} // namespace tamberline
