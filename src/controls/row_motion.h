#pragma once

#include <QAbstractItemModel>
#include <QPointer>
#include <QQuickItem>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

#include <map>
#include <vector>

namespace tamberline {

/// Lets the rows of a list view move to their places when its model changes, and new rows fade in.
/// The view's own transitions leave rows in wrong places if rows change their heights or a change
/// interrupts another. A row has a property `slide`: how far below its place it is drawn. An item
/// without a size, so that it can act before each frame.
class RowMotion : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* list MEMBER list_ NOTIFY listChanged)
  Q_PROPERTY(QAbstractItemModel* model MEMBER model_ WRITE setModel NOTIFY modelChanged)
  /// If false, rows are in their places immediately.
  Q_PROPERTY(bool isAllowed MEMBER isAllowed_ WRITE setAllowed NOTIFY isAllowedChanged)

public:
  explicit RowMotion(QQuickItem* parent = nullptr);

  /// The model of the list; set once.
  void setModel(QAbstractItemModel* model);
  void setAllowed(bool isAllowed);

signals:
  void listChanged();
  void modelChanged();
  void isAllowedChanged();

protected:
  void updatePolish() override;

private:
  struct MovingRow {
    QPointer<QQuickItem> item;
    double distance = 0; // how far below its place it began
    bool isNew = false;
  };

  void remember();
  void draw(double share);
  std::vector<QQuickItem*> rows() const;

  QQuickItem* list_ = nullptr; // a ListView; owns this item
  QAbstractItemModel* model_ = nullptr;
  bool isAllowed_ = false;
  bool isChangePending_ = false;
  std::map<const QQuickItem*, double> placesBefore_; // where rows were drawn before the change
  std::vector<MovingRow> moving_;
  QVariantAnimation animation_;
};

} // namespace tamberline
