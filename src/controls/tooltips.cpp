#include "controls/tooltips.h"

#include "controls/engine_objects.h"

#include <QQmlEngine>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds hoverDelay{600};

} // namespace

Tooltips::Tooltips(std::shared_ptr<MainQueue> queue) : queue_(std::move(queue)) {}

Tooltips::~Tooltips() {
  queue_->cancel(pending_);
}

Tooltips* Tooltips::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<Tooltips>(*engine);
}

void Tooltips::setHovered(QQuickItem* item, const QString& text, bool isHovered) {
  if (isHovered && !text.isEmpty()) {
    hide();
    hovered_ = item;
    connect(item, &QQuickItem::visibleChanged, this, [this, item] {
      if (!item->isVisible()) { // an item that appears may have just started its tooltip
        hide();
      }
    });
    connect(item, &QObject::destroyed, this, &Tooltips::hide);
    pending_ = queue_->postLater(hoverDelay, [this, text] { show(text); });
  } else if (item == hovered_) {
    hide();
  }
}

void Tooltips::hide() {
  queue_->cancel(std::exchange(pending_, 0));
  if (hovered_ != nullptr) {
    hovered_->disconnect(this);
  }
  hovered_.clear();
  target_.clear();
  if (std::exchange(isShown_, false)) {
    emit changed();
  }
}

void Tooltips::show(const QString& text) {
  target_ = hovered_;
  text_ = text;
  isShown_ = true;
  emit changed();
}

} // namespace tamberline
