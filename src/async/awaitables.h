// What coroutines on the main thread wait for. Each of these resumes on the main thread.
//
// A queue that ends drops the work that waits in it. A coroutine that waits is then resumed once
// more, with QueueEnded thrown into it, so that it unwinds and gives up everything that it holds;
// whoever awaits it unwinds in turn. Nothing catches QueueEnded.
//
// Rules that the compilers in use make necessary: a coroutine takes its parameters by value; no
// capturing lambda is a coroutine; a value that a co_await expression needs is named before it,
// because g++ 12 frees an aggregate temporary there twice.
#pragma once

#include "async/main_queue.h"

#include <QCoro/QCoroTask>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tamberline {

/// Thrown into coroutines whose queue ended while they waited.
struct QueueEnded {};

/// Resumes a coroutine exactly once: when called or, if nobody called it, when the last copy of the
/// work that holds it is dropped. Main thread only.
class Resumption {
public:
  /// `hasEnded` lives in the coroutine and tells it which of the two happened.
  Resumption(std::coroutine_handle<> waiting, bool& hasEnded)
      : waiting_(waiting), hasEnded_(hasEnded) {}
  Resumption(const Resumption&) = delete;
  Resumption& operator=(const Resumption&) = delete;
  ~Resumption() {
    if (waiting_) {
      hasEnded_ = true;
      resume();
    }
  }

  void resume() { std::exchange(waiting_, nullptr).resume(); }

private:
  std::coroutine_handle<> waiting_;
  bool& hasEnded_;
};

/// What the awaitables share: a queue, and how they learn of its end.
class QueueAwaitable {
public:
  explicit QueueAwaitable(std::shared_ptr<MainQueue> queue) : queue_(std::move(queue)) {}

protected:
  MainQueue& queue() const { return *queue_; }

  MainQueue::Work resume(std::coroutine_handle<> waiting) {
    return
        [resumption = std::make_shared<Resumption>(waiting, hasEnded_)] { resumption->resume(); };
  }

  void throwIfEnded() const {
    if (hasEnded_) {
      throw QueueEnded();
    }
  }

private:
  std::shared_ptr<MainQueue> queue_;
  bool hasEnded_ = false;
};

/// Suspends for a time by the queue's clock.
class Delay : public QueueAwaitable {
public:
  Delay(std::shared_ptr<MainQueue> queue, std::chrono::milliseconds duration)
      : QueueAwaitable(std::move(queue)), duration_(duration) {}

  // The compiler calls it on an object.
  // NOLINTNEXTLINE(readability-convert-member-functions-to-static)
  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiting) {
    queue().postLater(duration_, resume(waiting));
  }
  void await_resume() const { throwIfEnded(); }

private:
  std::chrono::milliseconds duration_;
};

/// Continues on the main thread; does not suspend when already there.
class HopToMainThread : public QueueAwaitable {
public:
  using QueueAwaitable::QueueAwaitable;

  bool await_ready() const { return queue().isMainThread(); }
  void await_suspend(std::coroutine_handle<> waiting) { queue().post(resume(waiting)); }
  void await_resume() const { throwIfEnded(); }
};

/// Runs a function on a background task and gives its result; a default one when no task could be
/// had or the function threw. The function may outlive the coroutine and owns what it uses.
template <typename Result>
class InBackground : public QueueAwaitable {
public:
  InBackground(std::shared_ptr<MainQueue> queue, std::function<Result()> work)
      : QueueAwaitable(std::move(queue)), work_(std::move(work)) {}

  // The compiler calls it on an object.
  // NOLINTNEXTLINE(readability-convert-member-functions-to-static)
  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiting) {
    queue().runInBackground([work = std::move(work_), result = result_] { run(work, *result); },
                            resume(waiting));
  }
  Result await_resume() {
    throwIfEnded();
    return std::move(*result_);
  }

private:
  static void run(const std::function<Result()>& work, Result& result) {
    try {
      result = work();
    } catch (...) {
      result = Result{};
    }
  }

  std::function<Result()> work_;
  std::shared_ptr<Result> result_ = std::make_shared<Result>();
};

/// Something that several coroutines wait for, which is announced to all of them at once. Main
/// thread only. Whoever is to announce it must do so also when the queue ends: those who wait
/// unwind then.
class Announcement {
public:
  explicit Announcement(std::shared_ptr<MainQueue> queue) : queue_(std::move(queue)) {}

  class Wait : public QueueAwaitable {
  public:
    explicit Wait(Announcement& announcement)
        : QueueAwaitable(announcement.queue_), announcement_(announcement) {}

    // The compiler calls it on an object.
    // NOLINTNEXTLINE(readability-convert-member-functions-to-static)
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) {
      announcement_.waiting_.push_back(resume(waiting));
    }
    void await_resume() const { throwIfEnded(); }

  private:
    Announcement& announcement_;
  };

  /// Those who wait go on with later work of the queue, in the order in which they began to wait.
  void announce() {
    for (MainQueue::Work& resumption : std::exchange(waiting_, {})) {
      queue_->post(std::move(resumption));
    }
  }

private:
  std::shared_ptr<MainQueue> queue_;
  std::vector<MainQueue::Work> waiting_;
};

} // namespace tamberline
