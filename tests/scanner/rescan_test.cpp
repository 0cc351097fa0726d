#include "scanner_fixture.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class Rescan : public ScannerFixture {
protected:
  std::size_t scanCount() const { return machine->askCount(Question::usb); }
};

TEST_F(Rescan, TheMonitorStartsAfterTheFirstScanAndOnlyOnce) {
  scanner->scan();
  EXPECT_EQ(events->startCount, 0);
  queue->settle();
  EXPECT_EQ(events->startCount, 1);
  scan();
  EXPECT_EQ(events->startCount, 1);
}

TEST_F(Rescan, FollowsAnAttachedDeviceWithTwoScansTwoSecondsApart) {
  scan();
  events->changeRegistry();
  queue->advance(399ms);
  EXPECT_EQ(scanCount(), 1U);
  queue->advance(1ms);
  EXPECT_EQ(scanCount(), 2U);
  queue->advance(1999ms);
  EXPECT_EQ(scanCount(), 2U);
  queue->advance(1ms);
  EXPECT_EQ(scanCount(), 3U);
  queue->advance(1h);
  EXPECT_EQ(scanCount(), 3U);
}

TEST_F(Rescan, TheTwoSecondsCountFromTheEndOfTheFirstScan) {
  scan();
  machine->answerOnce(Question::usb, "");
  events->changeRegistry();
  queue->advance(400ms + 150ms);
  EXPECT_EQ(scanCount(), 3U);
  queue->advance(1999ms);
  EXPECT_EQ(scanCount(), 3U);
  queue->advance(1ms);
  EXPECT_EQ(scanCount(), 4U);
}

TEST_F(Rescan, FollowsAPowerSourceThatHolds) {
  scan();
  events->changePower(false);
  queue->advance(1500ms + 400ms);
  EXPECT_EQ(scanCount(), 2U);
}

TEST_F(Rescan, FindsWhatWasAttached) {
  scan();
  EXPECT_TRUE(scanner->portTree.get().empty());
  answerWithOnePort();
  events->changeRegistry();
  queue->advance(400ms);
  EXPECT_EQ(scanner->portTree.get().size(), 1U);
}

TEST_F(Rescan, DropsEventsThatFallIntoARunningScanButNotTheScanTwoSecondsLater) {
  scan();
  events->changeRegistry();
  queue->advance(300ms);
  machine->answerOnce(Question::usb, ""); // the scan is between its attempts then
  scanner->scan();
  queue->advance(100ms);
  EXPECT_TRUE(scanner->isScanning.get());
  queue->advance(50ms);
  EXPECT_FALSE(scanner->isScanning.get());
  EXPECT_EQ(scanCount(), 3U);
  queue->advance(2000ms);
  EXPECT_EQ(scanCount(), 4U);
}

TEST_F(Rescan, NothingHappensOnceTheScannerIsGone) {
  scan();
  events->changeRegistry();
  scanner.reset();
  EXPECT_FALSE(events->isRunning());
  queue->advance(1h);
  EXPECT_EQ(scanCount(), 1U);
}

TEST_F(Rescan, EverythingIsDestroyedWhenTheQueueEndsDuringAScan) {
  scan();
  const std::weak_ptr<PortScanner> weak = scanner;
  events->changeRegistry();
  queue->advance(300ms);
  machine->answerOnce(Question::usb, "");
  scanner->scan();
  queue->advance(110ms);
  EXPECT_TRUE(scanner->isScanning.get());
  scanner.reset();
  EXPECT_FALSE(weak.expired()) << "the scan holds it";
  queue->end();
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(events->isRunning());
}

TEST_F(Rescan, TheSecondScanIsSkippedIfTheScannerWasDestroyedInBetween) {
  scan();
  events->changeRegistry();
  queue->advance(400ms);
  EXPECT_EQ(scanCount(), 2U);
  scanner.reset();
  queue->advance(1h);
  EXPECT_EQ(scanCount(), 2U);
}

} // namespace
} // namespace tamberline
