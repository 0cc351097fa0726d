#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Places its children immediately when one of them changes, so that no item is shown, or measured
/// by a list, before it has its size.
class ChildLayout : public QQuickItem {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(double spacing MEMBER spacing_ NOTIFY spacingChanged)

public:
  explicit ChildLayout(QQuickItem* parent = nullptr);
  ChildLayout(const ChildLayout&) = delete;
  ChildLayout& operator=(const ChildLayout&) = delete;
  ~ChildLayout() override;

  void layOut();

signals:
  void spacingChanged();

protected:
  void componentComplete() override;
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

  double spacing() const { return spacing_; }

  /// Connects the signals of the child that affect the layout to `layOut`.
  virtual void follow(QQuickItem* child) = 0;
  /// Places the children and sets the implicit size. Changes that it makes do not cause another
  /// call.
  virtual void place() = 0;

private:
  double spacing_ = 0;
  bool isLayingOut_ = false;
};

} // namespace tamberline
