#pragma once

#include "async/main_queue.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace tamberline {

/// The main queue of a running Qt event loop. Created, ended and destroyed on the main thread. Only
/// MainQueueScope can create one, so that no program forgets to end it.
class QtMainQueue final : public MainQueue {
public:
  QtMainQueue(const QtMainQueue&) = delete;
  QtMainQueue& operator=(const QtMainQueue&) = delete;
  ~QtMainQueue() override;

  /// Drops all waiting work and all later work. The event loop drops work that other threads post
  /// later, as long as it runs. Waiting coroutines keep the queue alive, so the owner must call
  /// this before the application object is destroyed. Results of background work that still runs
  /// are ignored.
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

/// Creates the main queue of a program and ends it with its own scope, which must be inside that of
/// the application object. Coroutines that are still waiting then unwind.
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
