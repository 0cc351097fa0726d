#pragma once

#include "async/main_queue.h"

#include <map>
#include <memory>

namespace tamberline {

/// The main queue of a running Qt event loop. Made, ended and destroyed on the main thread.
class QtMainQueue final : public MainQueue {
public:
  QtMainQueue();
  QtMainQueue(const QtMainQueue&) = delete;
  QtMainQueue& operator=(const QtMainQueue&) = delete;
  ~QtMainQueue() override;

  /// Ends the queue: drops what waits, and what comes later at once. Coroutines that wait hold the
  /// queue, so whoever made it ends it, before the application object goes. Background work that
  /// still runs ends unheard.
  void end();

  bool isMainThread() const override;
  void post(Work work) override;
  WorkItem postLater(std::chrono::milliseconds delay, Work work) override;
  void cancel(WorkItem item) override;
  void runInBackground(Work work, Work next) override;

private:
  class Receiver;
  class Inbox;

  void finishBackgroundWork(WorkItem item);

  std::shared_ptr<Inbox> inbox_; // shared with background tasks, which may outlive the queue
  std::unique_ptr<Receiver> receiver_;
  std::map<WorkItem, Work> nextOfBackgroundWork_;
  WorkItem lastBackgroundWork_ = 0;
};

} // namespace tamberline
