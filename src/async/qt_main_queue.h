#pragma once

#include "async/main_queue.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace tamberline {

/// The main queue of a running Qt event loop. Made, ended and destroyed on the main thread. Only a
/// MainQueueScope makes one, so that no program forgets to end it.
class QtMainQueue final : public MainQueue {
public:
  QtMainQueue(const QtMainQueue&) = delete;
  QtMainQueue& operator=(const QtMainQueue&) = delete;
  ~QtMainQueue() override;

  /// Ends the queue: drops what waits, and what comes later. What another thread posts later is
  /// dropped by the event loop, as long as there is one. Coroutines that wait hold the queue, so
  /// whoever made it ends it, before the application object goes. Background work that still runs
  /// ends unheard.
  void end();

  bool isMainThread() const override;
  void post(Work work) override;
  WorkItem postLater(std::chrono::milliseconds delay, Work work) override;
  void cancel(WorkItem item) override;
  void runInBackground(Work work, Work next) override;

private:
  friend class MainQueueScope;

  class Receiver;
  class Inbox;

  explicit QtMainQueue(std::function<void()> prepareTask);

  void finishBackgroundWork(WorkItem item);

  std::function<void()> prepareTask_;
  std::shared_ptr<Inbox> inbox_; // shared with background tasks, which may outlive the queue
  std::unique_ptr<Receiver> receiver_;
  std::map<WorkItem, Work> nextOfBackgroundWork_;
  WorkItem lastBackgroundWork_ = 0;
};

/// The main queue of a program: ends with its scope, which lies within that of the application
/// object. Coroutines that still wait then unwind.
class MainQueueScope {
public:
  /// `prepareTask` runs at the start of each background task, on its thread.
  explicit MainQueueScope(std::function<void()> prepareTask = {})
      : queue_(new QtMainQueue(std::move(prepareTask))) {}
  MainQueueScope(const MainQueueScope&) = delete;
  MainQueueScope& operator=(const MainQueueScope&) = delete;
  ~MainQueueScope() { queue_->end(); }

  const std::shared_ptr<QtMainQueue>& queue() const { return queue_; }

private:
  std::shared_ptr<QtMainQueue> queue_;
};

} // namespace tamberline
