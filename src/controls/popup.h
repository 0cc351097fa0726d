#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// A box that explains another item, its target. It floats in its parent, below the target if there
/// is room, otherwise above it. `beyond` is another item above the place of the box that the box
/// must not cover. Visible while it has a target.
class Popup : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)
  /// May be null.
  Q_PROPERTY(QQuickItem* beyond READ beyond WRITE setBeyond NOTIFY beyondChanged)
  /// The place of the arrow that points to the target, from the left edge of the box.
  Q_PROPERTY(double arrowX READ arrowX NOTIFY placed)
  Q_PROPERTY(bool isBelow READ isBelow NOTIFY placed)

public:
  explicit Popup(QQuickItem* parent = nullptr);

  QQuickItem* target() const { return target_; }
  void setTarget(QQuickItem* target);
  QQuickItem* beyond() const { return beyond_; }
  void setBeyond(QQuickItem* beyond);
  double arrowX() const { return arrowX_; }
  bool isBelow() const { return isBelow_; }

signals:
  void targetChanged();
  void beyondChanged();
  void placed();

protected:
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
  void updatePolish() override;

private:
  QRectF placeOf(const QQuickItem& item) const;

  QPointer<QQuickItem> target_;
  QPointer<QQuickItem> beyond_;
  double arrowX_ = 0;
  bool isBelow_ = true;
};

} // namespace tamberline
