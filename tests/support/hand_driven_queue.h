#pragma once

#include "async/main_queue.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <map>

namespace tamberline {

/// A main queue whose clock only moves when a test moves it. Background work waits until the test
/// runs it, each piece on a separate thread, one after another. Otherwise single-threaded: the test
/// is the main thread.
class HandDrivenQueue final : public MainQueue {
public:
  bool isMainThread() const override { return isMainThread_; }
  void post(Work work) override;
  WorkItem postLater(std::chrono::milliseconds delay, Work work) override;
  void cancel(WorkItem item) override { delayed_.erase(item); }
  void runInBackground(Work work, Work next) override;

  /// Drops everything that waits, and everything posted later, like a queue that has ended.
  void end();

  /// Runs everything that can run at the current time, including background work.
  void settle();

  /// Moves the clock, stopping at every delayed item on the way and settling there.
  void advance(std::chrono::milliseconds duration);

  /// The same, but no background work finishes in that time.
  void advanceWithoutBackground(std::chrono::milliseconds duration);

  /// Runs posted work; background work keeps waiting.
  void runPosted();

  /// Finishes the oldest waiting background work, and runs the work that it posted.
  void finishOneBackgroundWork();

  /// The same for the newest, which overtakes the others.
  void finishNewestBackgroundWork();

  std::chrono::milliseconds now() const { return now_; }
  std::size_t delayedCount() const { return delayed_.size(); }
  std::size_t backgroundCount() const { return background_.size(); }

  /// Sets the result of isMainThread, to act as a caller on another thread.
  void pretendOtherThread(bool isOther) { isMainThread_ = !isOther; }

private:
  struct Delayed {
    std::chrono::milliseconds due{0};
    Work work;
  };
  struct Background {
    Work work;
    Work next;
  };

  std::map<WorkItem, Delayed>::iterator earliest();
  void finish(Background background);
  void moveClock(std::chrono::milliseconds duration, const Work& afterEach);

  bool isMainThread_ = true;
  bool hasEnded_ = false;
  std::chrono::milliseconds now_{0};
  WorkItem lastItem_ = 0;
  std::deque<Work> posted_;
  std::map<WorkItem, Delayed> delayed_;
  std::deque<Background> background_;
};

} // namespace tamberline
