#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// A box that explains another item, its target. It floats in its parent, below the target if there
/// is room, otherwise above it. Visible while it has a target.
class Popup : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)

public:
  explicit Popup(QQuickItem* parent = nullptr);

  QQuickItem* target() const { return target_; }
  void setTarget(QQuickItem* target);

signals:
  void targetChanged();

protected:
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
  void updatePolish() override;

private:
  QPointer<QQuickItem> target_;
};

} // namespace tamberline
