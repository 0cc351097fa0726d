#include "async/awaitables.h"
#include "async/qt_main_queue.h"

#include <QCoreApplication>
#include <QThread>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class QtMainQueueTest : public testing::Test {
protected:
  /// Runs the event loop until work on the queue quits it.
  static void runLoop() { QCoreApplication::exec(); }
  static void quitLoop() { QCoreApplication::quit(); }

  /// Whether it happens within a generous time limit.
  template <typename Condition>
  static bool waitFor(std::condition_variable& event, std::unique_lock<std::mutex>& lock,
                      Condition condition) {
    return event.wait_for(lock, 10s, condition);
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  std::optional<MainQueueScope> scope_{std::in_place};
  QtMainQueue& queue = *scope_->queue();
};

TEST_F(QtMainQueueTest, RunsPostedWorkInOrderOnTheMainThread) {
  std::vector<int> order;
  queue.post([&] { order.push_back(1); });
  queue.post([&] {
    order.push_back(2);
    queue.post([&] {
      order.push_back(4);
      quitLoop();
    });
  });
  queue.post([&] { order.push_back(3); });
  EXPECT_TRUE(order.empty());
  runLoop();
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(QtMainQueueTest, TakesWorkFromManyThreadsWithoutLosingAny) {
  constexpr int threadCount = 4;
  constexpr int worksPerThread = 500;
  int ran = 0;
  std::vector<std::thread> threads;
  for (int index = 0; index < threadCount; ++index) {
    threads.emplace_back([&] {
      EXPECT_FALSE(queue.isMainThread());
      for (int work = 0; work < worksPerThread; ++work) {
        queue.post([&] {
          EXPECT_TRUE(queue.isMainThread());
          if (++ran == threadCount * worksPerThread) {
            quitLoop();
          }
        });
      }
    });
  }
  runLoop();
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(ran, threadCount * worksPerThread);
}

TEST_F(QtMainQueueTest, RunsDelayedWorkInTheOrderOfItsTimes) {
  std::vector<int> order;
  queue.postLater(20ms, [&] {
    order.push_back(2);
    quitLoop();
  });
  queue.postLater(0ms, [&] { order.push_back(1); });
  runLoop();
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(QtMainQueueTest, ForgetsCancelledWork) {
  bool didRun = false;
  const MainQueue::WorkItem item = queue.postLater(0ms, [&] { didRun = true; });
  queue.cancel(item);
  queue.postLater(5ms, quitLoop);
  runLoop();
  EXPECT_FALSE(didRun);
}

TEST_F(QtMainQueueTest, CancelsNothingByTheNumberOfFinishedWork) {
  bool didSecondRun = false;
  MainQueue::WorkItem first = 0;
  first = queue.postLater(0ms, [&] {
    queue.postLater(0ms, [&] {
      didSecondRun = true;
      quitLoop();
    });
    queue.cancel(first);
    queue.cancel(0);
  });
  runLoop();
  EXPECT_TRUE(didSecondRun);
}

TEST_F(QtMainQueueTest, RunsBackgroundWorkOffTheMainThreadAndContinuesOnIt) {
  int result = 0;
  queue.runInBackground(
      [&] {
        EXPECT_FALSE(queue.isMainThread());
        result = 42;
      },
      [&] {
        EXPECT_TRUE(queue.isMainThread());
        EXPECT_EQ(result, 42);
        quitLoop();
      });
  runLoop();
}

TEST_F(QtMainQueueTest, RunsManyBackgroundWorksAtTheSameTime) {
  constexpr int count = 8;
  std::mutex mutex;
  std::condition_variable allStarted;
  int started = 0;
  int finished = 0;
  for (int index = 0; index < count; ++index) {
    queue.runInBackground(
        [&] {
          std::unique_lock lock(mutex);
          ++started;
          allStarted.notify_all();
          EXPECT_TRUE(waitFor(allStarted, lock, [&] { return started >= count; }));
          started = count; // one failed wait is enough
        },
        [&] {
          if (++finished == count) {
            quitLoop();
          }
        });
  }
  runLoop();
  EXPECT_EQ(finished, count);
}

/// Releases `held` when it ends, by itself or because the queue ends.
QCoro::Task<> waitAnHour(std::shared_ptr<MainQueue> queue,
                         [[maybe_unused]] std::shared_ptr<void> held) {
  Delay delay(std::move(queue), 1h);
  co_await delay;
}

QCoro::Task<> hop(std::shared_ptr<MainQueue> queue, [[maybe_unused]] std::shared_ptr<void> held) {
  HopToMainThread hop(std::move(queue));
  co_await hop;
}

QCoro::Task<> computeForNobody(std::shared_ptr<MainQueue> queue,
                               [[maybe_unused]] std::shared_ptr<void> held) {
  InBackground<int> computation(std::move(queue), [] { return 42; });
  co_await computation;
}

TEST_F(QtMainQueueTest, UnwindsACoroutineThatWaitsWhenItsScopeEnds) {
  const std::shared_ptr<QtMainQueue> kept = scope_->queue();
  const auto held = std::make_shared<int>(0);
  waitAnHour(kept, held);
  EXPECT_EQ(held.use_count(), 2);
  scope_.reset();
  EXPECT_EQ(held.use_count(), 1);
  EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(QtMainQueueTest, UnwindsACoroutineThatBeginsToWaitAfterItsEnd) {
  const std::shared_ptr<QtMainQueue> kept = scope_->queue();
  scope_.reset();
  const auto held = std::make_shared<int>(0);
  waitAnHour(kept, held);
  computeForNobody(kept, held);
  EXPECT_EQ(held.use_count(), 1);
  EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(QtMainQueueTest, UnwindsACoroutineOfAnotherThreadOnTheMainThreadAfterItsEnd) {
  const std::shared_ptr<QtMainQueue> kept = scope_->queue();
  scope_.reset();
  std::thread::id unwoundOn;
  std::shared_ptr<void> held(nullptr, [&](void*) { unwoundOn = std::this_thread::get_id(); });
  std::thread([&] { hop(kept, std::move(held)); }).join();
  EXPECT_EQ(unwoundOn, std::thread::id());
  QCoreApplication::processEvents();
  EXPECT_EQ(unwoundOn, std::this_thread::get_id());
  EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(QtMainQueueTest, RunsNoPostedWorkAfterItsEnd) {
  bool didRun = false;
  queue.post([&] {
    queue.end();
    quitLoop();
  });
  queue.post([&] { didRun = true; });
  runLoop();
  EXPECT_FALSE(didRun);
}

TEST_F(QtMainQueueTest, DropsWorkThatArrivesAfterItsEnd) {
  std::mutex mutex;
  std::condition_variable queueEnded;
  bool hasEnded = false;
  std::atomic<bool> didGoOn = false;
  std::atomic<bool> isWorkOver = false;
  auto alive = std::make_shared<int>(0);
  queue.runInBackground(
      [&] {
        std::unique_lock lock(mutex);
        EXPECT_TRUE(waitFor(queueEnded, lock, [&] { return hasEnded; }));
        isWorkOver = true;
      },
      [&didGoOn, alive] { didGoOn = true; });
  queue.post([&didGoOn] { didGoOn = true; });
  queue.postLater(0ms, [&didGoOn] { didGoOn = true; });
  queue.end();
  EXPECT_EQ(alive.use_count(), 1) << "what follows the background work goes on the main thread";
  queue.post([&didGoOn] { didGoOn = true; });
  queue.postLater(0ms, [&didGoOn] { didGoOn = true; });
  scope_.reset();
  {
    const std::lock_guard lock(mutex);
    hasEnded = true;
    queueEnded.notify_all();
  }
  while (!isWorkOver) {
    std::this_thread::yield();
  }
  QCoreApplication::processEvents();
  EXPECT_FALSE(didGoOn);
}

TEST_F(QtMainQueueTest, PreparesTheThreadOfEachBackgroundTask) {
  thread_local bool isPrepared = false;
  const MainQueueScope preparing([] { isPrepared = true; });
  int preparedCount = 0;
  const auto next = [&, finished = std::make_shared<int>(0)] {
    if (++*finished == 2) {
      quitLoop();
    }
  };
  std::mutex mutex;
  for (int task = 0; task < 2; ++task) {
    preparing.queue()->runInBackground(
        [&] {
          const std::lock_guard lock(mutex);
          preparedCount += isPrepared ? 1 : 0;
        },
        next);
  }
  runLoop();
  EXPECT_EQ(preparedCount, 2);
  EXPECT_FALSE(isPrepared);
}

} // namespace
} // namespace tamberline
