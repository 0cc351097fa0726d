#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace tamberline {

/// The main thread as an interface for the layers. All displayed state is read and written on it
/// only. Tests use an implementation that they advance by hand, so that no test waits for a clock.
///
/// When a queue ends, it drops its waiting work on the main thread. Work that holds a suspended
/// coroutine then unwinds the coroutine (see awaitables.h).
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

  /// Runs `work` on the main thread, in the order of the calls. Any thread.
  virtual void post(Work work) = 0;

  /// Runs `work` after the delay and keeps it alive while it runs. The returned item is never 0.
  /// Main thread only.
  virtual WorkItem postLater(std::chrono::milliseconds delay, Work work) = 0;

  /// Drops a delayed item; does nothing if it already ran. Main thread only.
  virtual void cancel(WorkItem item) = 0;

  /// Runs `work` on a background thread at once, in parallel with other background work, and then
  /// `next` on the main thread. `next` never leaves the main thread; `work` may outlive the queue.
  /// If no thread can be started, only `next` runs. Main thread only.
  virtual void runInBackground(Work work, Work next) = 0;
};

} // namespace tamberline
