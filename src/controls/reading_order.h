#pragma once

#include <QAbstractItemModel>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Keeps the rows of a list view in the order of their property `index` among its children, because
/// screen readers go through them in that order. The view adds rows in the order in which it
/// creates them. An item without a size, so that it can act before each frame.
class ReadingOrder : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* list MEMBER list_ WRITE setList NOTIFY listChanged)
  Q_PROPERTY(QAbstractItemModel* model MEMBER model_ WRITE setModel NOTIFY modelChanged)

public:
  using QQuickItem::QQuickItem;

  void setList(QQuickItem* list);
  /// The model of the list; set once.
  void setModel(QAbstractItemModel* model);

signals:
  void listChanged();
  void modelChanged();

protected:
  void updatePolish() override;

private:
  QQuickItem* list_ = nullptr; // a ListView; owns this item
  QAbstractItemModel* model_ = nullptr;
};

} // namespace tamberline
