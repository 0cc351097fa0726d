#include "controls/scroll_proxy.h"

#include <QEasingCurve>

#include <algorithm>

namespace tamberline {
namespace {

constexpr int scrollingMilliseconds = 250;
constexpr int listViewCenter = 1; // ListView.Center

} // namespace

ScrollProxy::ScrollProxy(QObject* parent) : QObject(parent) {
  animation_.setDuration(scrollingMilliseconds);
  animation_.setEasingCurve(QEasingCurve::InOutQuad);
  connect(&animation_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& position) { moveTo(position.toDouble()); });
  connect(&animation_, &QVariantAnimation::finished, this, &ScrollProxy::arrive);
}

void ScrollProxy::setList(QQuickItem* list) {
  list_ = list;
  connect(list_, &QQuickItem::windowChanged, this, &ScrollProxy::followKeyboard);
  followKeyboard(list_->window());
  emit listChanged();
}

/// Queued, because a row that the list creates to receive focus is positioned only after it has
/// focus.
void ScrollProxy::followKeyboard(const QQuickWindow* window) const {
  if (window != nullptr) {
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &ScrollProxy::revealKeyboard,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
  }
}

void ScrollProxy::revealKeyboard() {
  const QQuickItem* item =
      list_->window() == nullptr ? nullptr : list_->window()->activeFocusItem();
  const bool isUnderWay = animation_.state() == QAbstractAnimation::Running;
  if (item == nullptr || !list_->isAncestorOf(item) || isUnderWay) {
    return;
  }
  const QRectF place = item->mapRectToItem(list_, QRectF(0, 0, item->width(), item->height()));
  const double up = std::max(0.0, place.bottom() - visibleHeight_);
  const double shift = place.top() < up ? place.top() : up;
  if (shift != 0) {
    list_->setProperty("contentY", list_->property("contentY").toDouble() + shift);
  }
}

void ScrollProxy::centre(int index) {
  if (list_ == nullptr) {
    return;
  }
  animation_.stop();
  const double start = scrollStartFor(index);
  const double end = positionThatCentres(index);
  moveTo(start);
  animation_.setStartValue(start);
  animation_.setEndValue(end);
  animation_.start();
  list_->setProperty("currentIndex", index);
  list_->forceActiveFocus(Qt::OtherFocusReason);
}

/// The current position. For a row without a delegate: one visible height away from the row,
/// because the list only estimates the real distance until it has created the rows between.
double ScrollProxy::scrollStartFor(int index) {
  const double position = list_->property("contentY").toDouble();
  if (rowAt(index) != nullptr) {
    return position;
  }
  int seen = -1;
  QMetaObject::invokeMethod(list_, "indexAt", Q_RETURN_ARG(int, seen), Q_ARG(double, 1),
                            Q_ARG(double, position + visibleHeight_ / 2));
  QMetaObject::invokeMethod(list_, "positionViewAtIndex", Q_ARG(int, index),
                            Q_ARG(int, listViewCenter));
  return positionThatCentres(index) + (seen < index ? -visibleHeight_ : visibleHeight_);
}

/// Corrects the end position, which is wrong if the height of rows changed during the animation.
void ScrollProxy::arrive() {
  if (const int index = list_->property("currentIndex").toInt(); rowAt(index) != nullptr) {
    moveTo(positionThatCentres(index));
  }
}

/// Stays within the ends, because a list view beyond them can keep trying endlessly to return.
void ScrollProxy::moveTo(double position) {
  list_->setProperty("contentY", betweenEnds(position));
}

double ScrollProxy::betweenEnds(double position) const {
  const auto number = [this](const char* name) { return list_->property(name).toDouble(); };
  const double first = number("originY");
  const double top = first - number("topMargin");
  const double bottom = first + number("contentHeight") + number("bottomMargin") - number("height");
  return std::clamp(position, top, std::max(top, bottom));
}

/// Null if the list view has no delegate for it.
QQuickItem* ScrollProxy::rowAt(int index) const {
  QQuickItem* row = nullptr;
  QMetaObject::invokeMethod(list_, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, row),
                            Q_ARG(int, index));
  return row;
}

double ScrollProxy::positionThatCentres(int index) const {
  const QQuickItem* row = rowAt(index);
  return betweenEnds(row == nullptr ? list_->property("contentY").toDouble()
                                    : row->y() + (row->height() - visibleHeight_) / 2);
}

} // namespace tamberline
