#include "controls/popover.h"

#include "controls/engine_objects.h"

namespace tamberline {

Popover* Popover::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<Popover>(*engine);
}

void Popover::toggle(QQuickItem* button, const QString& title, const QString& text,
                     const QString& secondText, QQuickItem* beyond) {
  const bool wasOpen = target_ == button;
  close();
  if (wasOpen) {
    return;
  }
  target_ = button;
  beyond_ = beyond;
  title_ = title;
  text_ = text;
  secondText_ = secondText;
  connect(button, &QQuickItem::visibleChanged, this, &Popover::close);
  connect(button, &QObject::destroyed, this, &Popover::changed);
  emit changed();
}

void Popover::close() {
  if (target_ != nullptr) {
    target_->disconnect(this);
    target_.clear();
    emit changed();
  }
}

} // namespace tamberline
