#pragma once

#include <QObject>
#include <QQuickItem>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Moves a list view smoothly, so that a row comes to stand in the middle of what is seen of it.
class ScrollProxy : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QQuickItem* list MEMBER list_ NOTIFY listChanged)
  /// The height of the part of the list that is seen, in points.
  Q_PROPERTY(double visibleHeight MEMBER visibleHeight_ NOTIFY visibleHeightChanged)

public:
  explicit ScrollProxy(QObject* parent = nullptr);

  void centre(int index);

signals:
  void listChanged();
  void visibleHeightChanged();

private:
  double positionThatCentres(int index) const;

  QQuickItem* list_ = nullptr; // a ListView; owns this object
  double visibleHeight_ = 0;
  QVariantAnimation animation_;
};

} // namespace tamberline
