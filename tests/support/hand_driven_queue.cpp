#include "support/hand_driven_queue.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace tamberline {

void HandDrivenQueue::post(Work work) {
  if (!hasEnded_) {
    posted_.push_back(std::move(work));
  }
}

MainQueue::WorkItem HandDrivenQueue::postLater(std::chrono::milliseconds delay, Work work) {
  if (hasEnded_) {
    return ++lastItem_;
  }
  delayed_[++lastItem_] = {now_ + delay, std::move(work)};
  return lastItem_;
}

void HandDrivenQueue::runInBackground(Work work, Work next) {
  if (!hasEnded_) {
    background_.push_back({std::move(work), std::move(next)});
  }
}

void HandDrivenQueue::runPosted() {
  while (!posted_.empty()) {
    const Work work = std::move(posted_.front());
    posted_.pop_front();
    work();
  }
}

void HandDrivenQueue::finishOneBackgroundWork() {
  Background background = std::move(background_.front());
  background_.pop_front();
  finish(std::move(background));
}

void HandDrivenQueue::finishNewestBackgroundWork() {
  Background background = std::move(background_.back());
  background_.pop_back();
  finish(std::move(background));
}

void HandDrivenQueue::finish(Background background) {
  std::thread(std::move(background.work)).join();
  post(std::move(background.next));
  runPosted();
}

void HandDrivenQueue::end() {
  hasEnded_ = true;
  std::exchange(posted_, {}).clear();
  std::exchange(delayed_, {}).clear();
  std::exchange(background_, {}).clear();
}

void HandDrivenQueue::settle() {
  runPosted();
  while (!background_.empty()) {
    finishOneBackgroundWork();
  }
}

std::map<MainQueue::WorkItem, HandDrivenQueue::Delayed>::iterator HandDrivenQueue::earliest() {
  return std::min_element(
      delayed_.begin(), delayed_.end(),
      [](const auto& left, const auto& right) { return left.second.due < right.second.due; });
}

void HandDrivenQueue::advance(std::chrono::milliseconds duration) {
  settle();
  moveClock(duration, [this] { settle(); });
}

void HandDrivenQueue::advanceWithoutBackground(std::chrono::milliseconds duration) {
  moveClock(duration, [this] { runPosted(); });
}

void HandDrivenQueue::moveClock(std::chrono::milliseconds duration, const Work& afterEach) {
  const std::chrono::milliseconds end = now_ + duration;
  for (auto next = earliest(); next != delayed_.end() && next->second.due <= end;
       next = earliest()) {
    now_ = next->second.due;
    const Work work = std::move(next->second.work);
    delayed_.erase(next);
    work();
    afterEach();
  }
  now_ = end;
}

} // namespace tamberline
