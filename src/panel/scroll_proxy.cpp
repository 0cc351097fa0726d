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
