#include "scanner/port_monitor.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PortMonitorTest : public testing::Test {
protected:
  std::shared_ptr<SimulatedEventSource> events = std::make_shared<SimulatedEventSource>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  int changes = 0;
  PortMonitor monitor{[this] { ++changes; }, events, queue};
};

TEST_F(PortMonitorTest, DoesNothingBeforeItIsStarted) {
  EXPECT_EQ(events->startCount, 0);
  monitor.start();
  EXPECT_EQ(events->startCount, 1);
  queue->advance(1h);
  EXPECT_EQ(changes, 0);
}

TEST_F(PortMonitorTest, TurnsABurstOfEventsIntoOneChange400MillisecondsAfterTheLast) {
  monitor.start();
  for (int event = 0; event < 10; ++event) {
    events->changeRegistry();
    queue->advance(300ms);
  }
  EXPECT_EQ(changes, 0);
  queue->advance(99ms);
  EXPECT_EQ(changes, 0);
  queue->advance(1ms);
  EXPECT_EQ(changes, 1);
  queue->advance(1h);
  EXPECT_EQ(changes, 1);
}

TEST_F(PortMonitorTest, KeepsNothingPendingFromAHundredThousandEvents) {
  monitor.start();
  for (int event = 0; event < 100'000; ++event) {
    events->changeRegistry();
  }
  EXPECT_EQ(queue->delayedCount(), 1U);
  queue->advance(1s);
  EXPECT_EQ(changes, 1);
}

TEST_F(PortMonitorTest, ReportsDistantEventsAsTwoChanges) {
  monitor.start();
  events->changeRegistry();
  queue->advance(400ms);
  events->changeRegistry();
  queue->advance(400ms);
  EXPECT_EQ(changes, 2);
}

TEST_F(PortMonitorTest, WaitsUntilANewPowerSourceHasHeldForOneAndAHalfSeconds) {
  monitor.start();
  events->changePower(false);
  queue->advance(1499ms);
  EXPECT_EQ(queue->delayedCount(), 1U);
  queue->advance(1ms + 399ms);
  EXPECT_EQ(changes, 0);
  queue->advance(1ms);
  EXPECT_EQ(changes, 1);
}

TEST_F(PortMonitorTest, IgnoresAPowerSourceThatFlickers) {
  monitor.start();
  events->changePower(false);
  queue->advance(1s);
  events->changePower(true);
  EXPECT_EQ(queue->delayedCount(), 0U);
  queue->advance(1h);
  EXPECT_EQ(changes, 0);
}

TEST_F(PortMonitorTest, RestartsTheTimerWithEveryPowerEvent) {
  monitor.start();
  events->changePower(false);
  queue->advance(1s);
  events->changePower(false);
  queue->advance(1s);
  EXPECT_EQ(changes, 0);
  queue->advance(900ms);
  EXPECT_EQ(changes, 1);
}

TEST_F(PortMonitorTest, ForgetsAPowerChangeThatWasRevertedWithoutAnEvent) {
  monitor.start();
  events->changePower(false);
  events->isOnAC = true;
  queue->advance(1h);
  EXPECT_EQ(changes, 0);
}

TEST_F(PortMonitorTest, IgnoresPowerEventsThatChangeNothing) {
  monitor.start();
  events->changePower(true);
  EXPECT_EQ(queue->delayedCount(), 0U);
  queue->advance(1h);
  EXPECT_EQ(changes, 0);
}

TEST_F(PortMonitorTest, ReportsBothChangesOfAPowerSourceThatHolds) {
  monitor.start();
  events->changePower(false);
  queue->advance(1500ms);
  events->changePower(true);
  queue->advance(1500ms);
  queue->advance(400ms);
  EXPECT_EQ(changes, 2);
}

TEST_F(PortMonitorTest, MergesPowerAndRegistryEventsIntoOneChange) {
  monitor.start();
  events->changePower(false);
  queue->advance(1400ms);
  events->changeRegistry();
  queue->advance(200ms);
  queue->advance(1h);
  EXPECT_EQ(changes, 1);
}

TEST_F(PortMonitorTest, NeverReportsPendingChangesAfterItStops) {
  monitor.start();
  events->changeRegistry();
  events->changePower(false);
  monitor.stop();
  EXPECT_EQ(queue->delayedCount(), 0U);
  EXPECT_EQ(events->stopCount, 1);
  queue->advance(1h);
  EXPECT_EQ(changes, 0);
}

TEST_F(PortMonitorTest, MayBeStoppedTwiceAndWithoutAStart) {
  monitor.stop();
  monitor.start();
  monitor.stop();
  monitor.stop();
  EXPECT_FALSE(events->isRunning());
}

TEST(PortMonitorLife, StopsWhenDestroyed) {
  const auto events = std::make_shared<SimulatedEventSource>();
  const auto queue = std::make_shared<HandDrivenQueue>();
  int changes = 0;
  {
    PortMonitor monitor([&] { ++changes; }, events, queue);
    monitor.start();
    events->changeRegistry();
  }
  EXPECT_FALSE(events->isRunning());
  queue->advance(1h);
  EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace tamberline
