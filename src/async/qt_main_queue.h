#pragma once

#include "acquisition/main_queue.h"

#include <memory>

namespace tamberline {

/// The main queue of a running Qt event loop. Made and destroyed on the main thread; work that is
/// posted after its end is dropped, and background work that still runs then ends unheard.
class QtMainQueue final : public MainQueue {
public:
  QtMainQueue();
  QtMainQueue(const QtMainQueue&) = delete;
  QtMainQueue& operator=(const QtMainQueue&) = delete;
  ~QtMainQueue() override;

  bool isMainThread() const override;
  void post(Work work) override;
  WorkItem postLater(std::chrono::milliseconds delay, Work work) override;
  void cancel(WorkItem item) override;
  void runInBackground(Work work, Work next) override;

private:
  class Receiver;
  class Inbox;

  std::shared_ptr<Inbox> inbox_; // shared with background tasks, which may outlive the queue
  std::unique_ptr<Receiver> receiver_;
};

} // namespace tamberline
