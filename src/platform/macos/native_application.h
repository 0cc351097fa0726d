#pragma once

#include <functional>

namespace tamberline {

/// Reports each press of a mouse button in other applications, the menu bar included, until it is
/// destroyed. Main thread only; needs an event loop.
class OutsideClicks {
public:
  /// `clicked` may destroy this object.
  explicit OutsideClicks(std::function<void()> clicked);
  OutsideClicks(const OutsideClicks&) = delete;
  OutsideClicks& operator=(const OutsideClicks&) = delete;
  ~OutsideClicks();

private:
  std::function<void()> clicked_;
  void* monitor_;
};

/// Reports each time that the user opens the application while it runs, until it is destroyed. Only
/// one at a time, and only once the event loop runs: the system sets its own handler when the loop
/// starts. Main thread only.
class ReopenRequests {
public:
  explicit ReopenRequests(std::function<void()> requested);
  ReopenRequests(const ReopenRequests&) = delete;
  ReopenRequests& operator=(const ReopenRequests&) = delete;
  ~ReopenRequests();

private:
  std::function<void()> requested_;
  void* receiver_;
};

/// Hides the application if it is active. The one that was active before it then is so again. Main
/// thread only.
void hideActiveApplication();

} // namespace tamberline
