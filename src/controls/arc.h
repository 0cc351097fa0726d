#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Three quarters of a circle, as large as fits into the item; rotated, it shows progress.
class Arc : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER color_ WRITE setColor NOTIFY colorChanged)

public:
  explicit Arc(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) { setAntialiasing(true); }

  void setColor(const QColor& color);

  void paint(QPainter* painter) override;

signals:
  void colorChanged();

private:
  QColor color_ = Qt::black;
};

} // namespace tamberline
