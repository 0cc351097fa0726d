#include "async/awaitables.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

/// Records what a coroutine did. When the last copy is destroyed, the coroutine has released
/// everything.
using Log = std::shared_ptr<std::string>;

QCoro::Task<> waitAndNote(std::shared_ptr<MainQueue> queue, Log log) {
  Delay delay(std::move(queue), 100ms);
  co_await delay;
  *log += "waited ";
}

QCoro::Task<> hopAndNote(std::shared_ptr<MainQueue> queue, Log log) {
  HopToMainThread hop(std::move(queue));
  co_await hop;
  *log += "hopped ";
}

QCoro::Task<> computeAndNote(std::shared_ptr<MainQueue> queue, Log log,
                             std::function<std::string()> compute) {
  InBackground<std::string> computation(std::move(queue), std::move(compute));
  *log += "[" + co_await computation + "] ";
}

QCoro::Task<> awaitAnother(std::shared_ptr<MainQueue> queue, Log log) {
  auto inner = waitAndNote(std::move(queue), log);
  co_await inner;
  *log += "after the other ";
}

QCoro::Task<> awaitNews(std::shared_ptr<Announcement> news, Log log) {
  Announcement::Wait wait(*news);
  co_await wait;
  *log += "heard ";
}

class Awaitables : public testing::Test {
protected:
  void TearDown() override { queue->end(); }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  Log log = std::make_shared<std::string>();
};

TEST_F(Awaitables, WaitByTheClockOfTheQueue) {
  waitAndNote(queue, log);
  queue->advance(99ms);
  EXPECT_EQ(*log, "");
  queue->advance(1ms);
  EXPECT_EQ(*log, "waited ");
}

TEST_F(Awaitables, StayOnTheMainThreadWithoutWaiting) {
  hopAndNote(queue, log);
  EXPECT_EQ(*log, "hopped ");
}

TEST_F(Awaitables, HopFromAnotherThread) {
  queue->pretendOtherThread(true);
  hopAndNote(queue, log);
  EXPECT_EQ(*log, "");
  queue->pretendOtherThread(false);
  queue->runPosted();
  EXPECT_EQ(*log, "hopped ");
}

TEST_F(Awaitables, GiveTheResultOfBackgroundWork) {
  computeAndNote(queue, log, [] { return "result"; });
  EXPECT_EQ(*log, "");
  queue->settle();
  EXPECT_EQ(*log, "[result] ");
}

TEST_F(Awaitables, GiveADefaultResultWhenBackgroundWorkThrows) {
  computeAndNote(queue, log, []() -> std::string { throw std::runtime_error("out of luck"); });
  queue->settle();
  EXPECT_EQ(*log, "[] ");
}

TEST_F(Awaitables, AllHearAnAnnouncementOnALaterIteration) {
  const auto news = std::make_shared<Announcement>(queue);
  awaitNews(news, log);
  awaitNews(news, log);
  queue->runPosted();
  EXPECT_EQ(*log, "");
  news->announce();
  awaitNews(news, log); // waits for the next news
  EXPECT_EQ(*log, "");
  queue->runPosted();
  EXPECT_EQ(*log, "heard heard ");
  queue->end();
  news->announce();
  EXPECT_EQ(*log, "heard heard ");
  EXPECT_EQ(log.use_count(), 1);
}

TEST_F(Awaitables, UnwindWhenTheQueueEnds) {
  waitAndNote(queue, log);
  awaitAnother(queue, log);
  computeAndNote(queue, log, [] { return "result"; });
  queue->pretendOtherThread(true);
  hopAndNote(queue, log);
  EXPECT_GT(log.use_count(), 1);
  queue->end();
  EXPECT_EQ(*log, "");
  EXPECT_EQ(log.use_count(), 1);
  EXPECT_EQ(queue.use_count(), 1);
}

} // namespace
} // namespace tamberline
