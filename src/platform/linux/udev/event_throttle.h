#pragma once

#include <chrono>
#include <functional>

namespace tamberline {

/// Passes events on to a receiver that waits for silence before it acts. An endless burst would
/// delay the receiver indefinitely. So after `maxBurst` of a burst, events are held back for
/// `silence`, and the receiver acts within two seconds. The held-back events are then passed on as
/// one, so nothing is lost. For use on one thread.
class EventThrottle {
public:
  using Clock = std::chrono::steady_clock;
  using Pass = std::function<void()>;
  /// Calls back after the delay, but not after the throttle is destroyed.
  using Later = std::function<void(std::chrono::milliseconds delay, std::function<void()> call)>;
  using Now = std::function<Clock::time_point()>;

  /// The receiver's delay of 0.4 s, plus a margin.
  static constexpr std::chrono::milliseconds silence{450};
  /// How long the events of a burst are passed on before they are held back.
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
