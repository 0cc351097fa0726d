#include "panel/updated_text.h"

#include "controls/engine_objects.h"
#include "i18n/loc.h"
#include "i18n/relative_time.h"

#include <utility>

namespace tamberline {

UpdatedText::UpdatedText(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                         Clock now)
    : scanner_(std::move(scanner)), queue_(std::move(queue)), now_(std::move(now)),
      lastScannedObservation_(scanner_->lastScanned.observe([this] { tick(); })) {}

UpdatedText::~UpdatedText() {
  queue_->cancel(nextTick_);
}

UpdatedText* UpdatedText::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<UpdatedText>(*engine);
}

void UpdatedText::setPanelVisible(bool isVisible) {
  isPanelVisible_ = isVisible;
  tick();
}

void UpdatedText::tick() {
  queue_->cancel(std::exchange(nextTick_, 0));
  const auto& lastScanned = scanner_->lastScanned.get();
  if (!isPanelVisible_ || !lastScanned) {
    return;
  }
  const auto age = std::chrono::floor<std::chrono::seconds>(now_() - *lastScanned);
  QString text = QString::fromStdString(Loc::updated(relativeTimeText(age)));
  nextTick_ = queue_->postLater(untilRelativeTimeChanges(age), [this] { tick(); });
  if (text != text_) {
    text_ = std::move(text);
    emit textChanged();
  }
}

} // namespace tamberline
