#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace tamberline {

/// The main thread as the layers see it: all shown state is touched on it and nowhere else. A
/// hand-driven twin takes its place in tests, so that no test waits for a clock.
///
/// When a queue ends, it drops the work that still waits in it, on the main thread; work that holds
/// a suspended coroutine unwinds the coroutine then (see awaitables.h).
class MainQueue {
public:
  using Work = std::function<void()>;
  using WorkItem = std::uint64_t;

  MainQueue() = default;
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;
  virtual ~MainQueue() = default;

  /// Any thread.
  virtual bool isMainThread() const = 0;

  /// Runs `work` on the main thread, in the order of posting. Any thread.
  virtual void post(Work work) = 0;

  /// Runs `work` after the delay, and keeps it alive while it runs. Main thread only; the item is
  /// never 0.
  virtual WorkItem postLater(std::chrono::milliseconds delay, Work work) = 0;

  /// Forgets a delayed item; nothing happens when it already ran. Main thread only.
  virtual void cancel(WorkItem item) = 0;

  /// Runs `work` off the main thread at once, beside any other background work, and then `next` on
  /// the main thread. `next` never leaves the main thread; `work` may outlive the queue. When no
  /// background task can be had, `work` is left out. Main thread only.
  virtual void runInBackground(Work work, Work next) = 0;
};

} // namespace tamberline
