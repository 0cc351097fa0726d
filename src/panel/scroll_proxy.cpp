#include "panel/scroll_proxy.h"

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
          [this](const QVariant& position) { list_->setProperty("contentY", position); });
}

void ScrollProxy::setList(QQuickItem* list) {
  list_ = list;
  connect(list_, &QQuickItem::windowChanged, this, &ScrollProxy::followKeyboard);
  followKeyboard(list_->window());
  emit listChanged();
}

/// A row that the list makes for the keyboard has its place only after it has the keyboard.
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
  const QVariant start = list_->property("contentY");
  const double end = positionThatCentres(index);
  list_->setProperty("contentY", start);
  animation_.setStartValue(start.toDouble());
  animation_.setEndValue(end);
  animation_.start();
  list_->setProperty("currentIndex", index);
  list_->forceActiveFocus(Qt::OtherFocusReason);
}

/// Only the list view knows where a row that is not drawn stands, and tells by going there.
double ScrollProxy::positionThatCentres(int index) const {
  QMetaObject::invokeMethod(list_, "positionViewAtIndex", Q_ARG(int, index),
                            Q_ARG(int, listViewCenter));
  QQuickItem* row = nullptr;
  QMetaObject::invokeMethod(list_, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, row),
                            Q_ARG(int, index));
  const double top = list_->property("originY").toDouble();
  const double bottom = top + list_->property("contentHeight").toDouble() - visibleHeight_;
  const double centred = row == nullptr ? list_->property("contentY").toDouble()
                                        : row->y() + (row->height() - visibleHeight_) / 2;
  return std::clamp(centred, top, std::max(top, bottom));
}

} // namespace tamberline
