#include "async/awaitables.h"
#include "async/qt_main_queue.h"

#include <QCoreApplication>
#include <QThread>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class QtMainQueueTest : public testing::Test {
protected:
  /// Runs the event loop until something on the queue quits it.
  static void runLoop() { QCoreApplication::exec(); }
  static void quitLoop() { QCoreApplication::quit(); }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
};

TEST_F(QtMainQueueTest, RunsPostedWorkInOrderOnTheMainThread) {
  QtMainQueue queue;
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
  QtMainQueue queue;
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
  QtMainQueue queue;
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
  QtMainQueue queue;
  bool didRun = false;
  const MainQueue::WorkItem item = queue.postLater(0ms, [&] { didRun = true; });
  queue.cancel(item);
  queue.postLater(5ms, quitLoop);
  runLoop();
  EXPECT_FALSE(didRun);
}

TEST_F(QtMainQueueTest, CancelsNothingElseByTheNumberOfWorkThatRan) {
  QtMainQueue queue;
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

TEST_F(QtMainQueueTest, RunsBackgroundWorkOffTheMainThreadAndGoesOnOnIt) {
  QtMainQueue queue;
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
  QtMainQueue queue;
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
          allStarted.wait(lock, [&] { return started == count; });
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

QCoro::Task<> waitAnHour(std::shared_ptr<MainQueue> queue, std::shared_ptr<int> held) {
  Delay delay(std::move(queue), 1h);
  co_await delay;
  *held = 1;
}

TEST_F(QtMainQueueTest, UnwindsACoroutineThatWaitsWhenItEnds) {
  const auto queue = std::make_shared<QtMainQueue>();
  const auto held = std::make_shared<int>(0);
  waitAnHour(queue, held);
  EXPECT_EQ(held.use_count(), 2);
  queue->end();
  EXPECT_EQ(held.use_count(), 1);
  EXPECT_EQ(queue.use_count(), 1);
  EXPECT_EQ(*held, 0);
}

TEST_F(QtMainQueueTest, DropsWorkThatArrivesAfterItsEnd) {
  auto queue = std::make_unique<QtMainQueue>();
  std::mutex mutex;
  std::condition_variable queueEnded;
  bool hasEnded = false;
  std::atomic<bool> didGoOn = false;
  std::atomic<bool> isWorkOver = false;
  auto alive = std::make_shared<int>(0);
  queue->runInBackground(
      [&] {
        std::unique_lock lock(mutex);
        queueEnded.wait(lock, [&] { return hasEnded; });
        isWorkOver = true;
      },
      [&didGoOn, alive] { didGoOn = true; });
  queue->post([&didGoOn] { didGoOn = true; });
  queue->postLater(0ms, [&didGoOn] { didGoOn = true; });
  queue->end();
  EXPECT_EQ(alive.use_count(), 1) << "what follows the background work goes on the main thread";
  queue->post([&didGoOn] { didGoOn = true; });
  queue.reset();
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

} // namespace
} // namespace tamberline
