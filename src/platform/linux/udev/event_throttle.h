#pragma once

#include <chrono>
#include <functional>

namespace tamberline {

/// Passes events on to somebody who acts once they have been silent for a while, such that a burst
/// without end delays that for at most two seconds: of a burst that has lasted too long, events are
/// held back until the silence was there. Nothing is lost: what was held back is passed on then.
/// One thread.
class EventThrottle {
public:
  using Clock = std::chrono::steady_clock;
  using Pass = std::function<void()>;
  /// Calls back after the delay, and not once the pacer is gone.
  using Later = std::function<void(std::chrono::milliseconds delay, std::function<void()> call)>;
  using Now = std::function<Clock::time_point()>;

  /// How long somebody waits for silence (0.4 s), and a bit.
  static constexpr std::chrono::milliseconds silence{450};
  /// Of a burst, before it is held back.
  static constexpr std::chrono::milliseconds maxBurst{1500};

  EventThrottle(Pass pass, Now now, Later later);

  void take();

private:
  void passOn();

  Pass pass_;
  Now now_;
  Later later_;
  Clock::time_point burstStart_{};
  Clock::time_point lastPassed_{};
  bool hasPassed_ = false;
  bool isHoldingBack_ = false;
};

} // namespace tamberline
