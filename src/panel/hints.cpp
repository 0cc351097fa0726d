#include "panel/hints.h"

#include "panel/panel_context.h"

#include <QQmlEngine>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds restingTime{600};

} // namespace

Hints::Hints(std::shared_ptr<MainQueue> queue) : queue_(std::move(queue)) {}

Hints::~Hints() {
  queue_->cancel(pending_);
}

Hints* Hints::create(QQmlEngine* engine, QJSEngine*) {
  return PanelContext::of(*engine).hints();
}

void Hints::setHovered(QQuickItem* item, const QString& text, bool isHovered) {
  if (isHovered && !text.isEmpty()) {
    hide();
    hovered_ = item;
    pending_ = queue_->postLater(restingTime,
                                 [this, target = QPointer(item), text] { show(target, text); });
  } else if (item == hovered_) {
    hide();
  }
}

void Hints::hide() {
  queue_->cancel(std::exchange(pending_, 0));
  hovered_.clear();
  if (target_ != nullptr) {
    target_.clear();
    emit changed();
  }
}

void Hints::show(const QPointer<QQuickItem>& item, const QString& text) {
  target_ = item;
  text_ = text;
  emit changed();
}

} // namespace tamberline
