#pragma once

#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Scrolls a list view: smoothly to centre a row in the visible part, and immediately to keep the
/// item with keyboard focus visible.
class ScrollProxy : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QQuickItem* list MEMBER list_ WRITE setList NOTIFY listChanged)
  /// The height of the visible part of the list, in points.
  Q_PROPERTY(double visibleHeight MEMBER visibleHeight_ NOTIFY visibleHeightChanged)

public:
  explicit ScrollProxy(QObject* parent = nullptr);

  void setList(QQuickItem* list);
  /// Also gives the row keyboard focus.
  void centre(int index);

  /// Called when the user scrolls.
  Q_INVOKABLE void stop() { animation_.stop(); }

signals:
  void listChanged();
  void visibleHeightChanged();

private:
  void followKeyboard(const QQuickWindow* window) const;
  void revealKeyboard();
  double scrollStartFor(int index);
  void arrive();
  void moveTo(double position);
  double betweenEnds(double position) const;
  QQuickItem* rowAt(int index) const;
  double positionThatCentres(int index) const;

  QQuickItem* list_ = nullptr; // a ListView; owns this object
  double visibleHeight_ = 0;
  QVariantAnimation animation_;
};

} // namespace tamberline
