// Awaitables for coroutines on the main thread. Each resumes on the main thread.
//
// A queue that ends drops its waiting work. A coroutine that is waiting is then resumed once more,
// and its co_await throws QueueEnded, so that the coroutine unwinds and releases everything that it
// holds. Coroutines that await it unwind as well. Nothing catches QueueEnded.
//
// Rules for coroutines, needed for the compilers in use: they take parameters by value; capturing
// lambdas are not coroutines; operands of co_await are named variables, because g++ 12 frees an
// aggregate temporary there twice.
#pragma once

#include "async/main_queue.h"

#include <QCoro/QCoroTask>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tamberline {

/// Thrown in coroutines whose queue ended while they waited.
struct QueueEnded {};

/// Resumes a coroutine exactly once: by `resume` or, if that was not called, when the last copy of
/// the work that holds this object is dropped. Main thread only.
class Resumption {
public:
  /// `hasEnded` is in the coroutine's frame. It is set if the work was dropped.
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

/// The base of the awaitables: a queue, and whether it ended.
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

/// Suspends for a duration, measured by the queue's clock.
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

/// Continues on the main thread; does not suspend if already there.
class HopToMainThread : public QueueAwaitable {
public:
  using QueueAwaitable::QueueAwaitable;

  bool await_ready() const { return queue().isMainThread(); }
  void await_suspend(std::coroutine_handle<> waiting) { queue().post(resume(waiting)); }
  void await_resume() const { throwIfEnded(); }
};

/// Runs a function on a background thread and returns its result, or a default one if no thread
/// could be started or the function threw. The function may outlive the coroutine, so it must own
/// what it uses.
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

/// An event that several coroutines can wait for; `announce` resumes all of them. It must also be
/// called when the queue ends, so that they unwind. Main thread only.
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

  /// Resumes the waiting coroutines through the queue, in the order in which they began to wait.
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
