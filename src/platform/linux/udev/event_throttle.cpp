#include "platform/linux/udev/event_throttle.h"

#include <utility>

namespace tamberline {

EventThrottle::EventThrottle(Pass pass, Now now, Later later)
    : pass_(std::move(pass)), now_(std::move(now)), later_(std::move(later)) {}

void EventThrottle::take() {
  if (isHoldingBack_) {
    return;
  }
  const Clock::time_point now = now_();
  if (!hasPassed_ || now - lastPassed_ >= silence) {
    burstStart_ = now;
  }
  if (now - burstStart_ <= maxBurst) {
    passOn();
    return;
  }
  isHoldingBack_ = true;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(lastPassed_ + silence - now);
  later_(rest, [this] {
    isHoldingBack_ = false;
    burstStart_ = now_();
    passOn();
  });
}

void EventThrottle::passOn() {
  hasPassed_ = true;
  lastPassed_ = now_();
  const Pass pass = pass_; // a copy: the call may destroy this object
  pass();
}

} // namespace tamberline
