#pragma once

#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Moves a list view: smoothly, so that a row comes to stand in the middle of what is seen of it,
/// and at once, so that what has the keyboard is seen.
class ScrollProxy : public QObject {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QQuickItem* list MEMBER list_ WRITE setList NOTIFY listChanged)
  /// The height of the part of the list that is seen, in points.
  Q_PROPERTY(double visibleHeight MEMBER visibleHeight_ NOTIFY visibleHeightChanged)

public:
  explicit ScrollProxy(QObject* parent = nullptr);

  void setList(QQuickItem* list);
  /// Also gives the row the keyboard.
  void centre(int index);

  /// Somebody scrolls by hand.
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
