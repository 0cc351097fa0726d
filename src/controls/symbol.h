#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// A symbol in one colour, as large as fits into the item.
class Symbol : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString name MEMBER name_ WRITE setName NOTIFY nameChanged)
  Q_PROPERTY(QColor color MEMBER color_ WRITE setColor NOTIFY colorChanged)

public:
  explicit Symbol(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  void setName(const QString& name);
  void setColor(const QColor& color);

  void paint(QPainter* painter) override;

signals:
  void nameChanged();
  void colorChanged();

private:
  QString name_;
  QColor color_ = Qt::black;
};

} // namespace tamberline
