// What coroutines on the main thread wait for. Each of these resumes on the main thread.
//
// Rules that the compilers in use make necessary: a coroutine takes its parameters by value; no
// capturing lambda is a coroutine; a value that a co_await expression needs is named before it,
// because g++ 12 frees an aggregate temporary there twice.
#pragma once

#include "acquisition/main_queue.h"

#include <QCoro/QCoroTask>

#include <chrono>
#include <memory>
#include <utility>

namespace tamberline {

/// Suspends for a time by the queue's clock.
class Delay {
public:
  Delay(std::shared_ptr<MainQueue> queue, std::chrono::milliseconds duration)
      : queue_(std::move(queue)), duration_(duration) {}

  static bool await_ready() noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiting) const {
    queue_->postLater(duration_, [waiting] { waiting.resume(); });
  }
  static void await_resume() noexcept {}

private:
  std::shared_ptr<MainQueue> queue_;
  std::chrono::milliseconds duration_;
};

/// Continues on the main thread; does not suspend when already there.
class HopToMainThread {
public:
  explicit HopToMainThread(std::shared_ptr<MainQueue> queue) : queue_(std::move(queue)) {}

  bool await_ready() const { return queue_->isMainThread(); }
  void await_suspend(std::coroutine_handle<> waiting) const {
    queue_->post([waiting] { waiting.resume(); });
  }
  static void await_resume() noexcept {}

private:
  std::shared_ptr<MainQueue> queue_;
};

/// Runs a function on a background task and gives its result; a default one when no task could be
/// had.
template <typename Result>
class InBackground {
public:
  InBackground(std::shared_ptr<MainQueue> queue, std::function<Result()> work)
      : queue_(std::move(queue)), work_(std::move(work)) {}

  static bool await_ready() noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiting) {
    queue_->runInBackground([this] { result_ = work_(); }, [waiting] { waiting.resume(); });
  }
  Result await_resume() { return std::move(result_); }

private:
  std::shared_ptr<MainQueue> queue_;
  std::function<Result()> work_;
  Result result_{};
};

} // namespace tamberline
