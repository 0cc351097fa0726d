#include "platform/saved/playback.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using Time = std::chrono::system_clock::time_point;

/// Steps one, two and five seconds after the first.
std::vector<RecordedStep> fourSteps() {
  const Time start{};
  return {{"a", start},
          {"b", start + seconds(1)},
          {"c", start + seconds(2)},
          {"d", start + seconds(5)}};
}

class PlaybackTest : public testing::Test {
protected:
  std::string afterTime(Playback& playback, milliseconds time) const {
    queue->advance(time);
    return playback.step().folder.string() + (playback.state().get().isPaused ? " paused" : "");
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
};

TEST_F(PlaybackTest, TakesTheTimeThatPassedWhenItWasRecorded) {
  Playback playback(fourSteps(), 1, queue, {});
  playback.start();
  EXPECT_EQ(afterTime(playback, milliseconds(999)), "a");
  EXPECT_EQ(afterTime(playback, milliseconds(1)), "b");
  EXPECT_EQ(afterTime(playback, milliseconds(1000)), "c");
  EXPECT_EQ(afterTime(playback, milliseconds(2999)), "c");
  EXPECT_EQ(afterTime(playback, milliseconds(1)), "d");
  EXPECT_EQ(afterTime(playback, std::chrono::hours(1)), "d");
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(PlaybackTest, CanBeFasterAndSlower) {
  Playback fast(fourSteps(), 10, queue, {});
  fast.start();
  EXPECT_EQ(afterTime(fast, milliseconds(500)), "d");
  Playback slow(fourSteps(), 0.5, queue, {});
  slow.start();
  EXPECT_EQ(afterTime(slow, milliseconds(1999)), "a");
  EXPECT_EQ(afterTime(slow, milliseconds(1)), "b");
}

TEST_F(PlaybackTest, PausesAndGoesOn) {
  Playback playback(fourSteps(), 1, queue, {});
  playback.start();
  playback.togglePause();
  EXPECT_EQ(afterTime(playback, std::chrono::hours(1)), "a paused");
  playback.togglePause();
  EXPECT_EQ(afterTime(playback, milliseconds(1000)), "b");
}

TEST_F(PlaybackTest, GoesStepByStep) {
  Playback playback(fourSteps(), 1, queue, {});
  playback.start();
  playback.stepBack();
  EXPECT_EQ(afterTime(playback, milliseconds(0)), "a") << "before the first";
  playback.stepForward();
  EXPECT_EQ(afterTime(playback, std::chrono::hours(1)), "b paused");
  playback.stepForward();
  playback.stepForward();
  playback.stepForward();
  EXPECT_EQ(afterTime(playback, milliseconds(0)), "d paused");
  playback.stepBack();
  EXPECT_EQ(afterTime(playback, milliseconds(0)), "c paused");
}

TEST_F(PlaybackTest, IsAtRestWhereItStays) {
  Playback playback(fourSteps(), 1, queue, {});
  EXPECT_FALSE(playback.isAtRest());
  playback.togglePause();
  EXPECT_TRUE(playback.isAtRest());
  playback.togglePause();
  EXPECT_FALSE(playback.isAtRest());
  queue->advance(std::chrono::hours(1));
  EXPECT_TRUE(playback.isAtRest());
}

TEST_F(PlaybackTest, BeginsWithAnyStep) {
  Playback playback(fourSteps(), 1, queue, {2, true});
  playback.start();
  EXPECT_EQ(afterTime(playback, std::chrono::hours(1)), "c paused");
}

TEST_F(PlaybackTest, IsNotStoppedByAClockThatWasSetBack) {
  Playback playback({{"a", Time(seconds(9))}, {"b", Time(seconds(1))}}, 1, queue, {});
  playback.start();
  EXPECT_EQ(afterTime(playback, milliseconds(0)), "b");
}

TEST_F(PlaybackTest, EndsWithItsOwner) {
  { Playback(fourSteps(), 1, queue, {}).start(); }
  queue->advance(std::chrono::hours(1));
}

/// A recording whose steps have one device each, with the number of the step in its name.
std::vector<RecordedStep> recordedDevices(const TemporaryFolder& folder, int count) {
  Recorder recorder(folder.path() / "recording");
  EXPECT_EQ(recorder.begin(), std::nullopt);
  for (int number = 1; number <= count; ++number) {
    const std::string usb =
        R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [{"_name": "device )" +
        std::to_string(number) + R"("}]}]})";
    EXPECT_EQ(recorder.add({{Question::thunderbolt, R"({"SPThunderboltDataType": []})"},
                            {Question::power, R"({"SPPowerDataType": []})"},
                            {Question::usb, usb}},
                           Time(milliseconds(number * 10))),
              std::nullopt);
  }
  return stepsIn(folder.path() / "recording");
}

TEST_F(PlaybackTest, ShowsEveryStepInTheScanner) {
  const TemporaryFolder folder;
  Playback playback(recordedDevices(folder, 100), 1, queue, {});
  const auto machine = std::make_shared<RecordedMachine>(playback.step().folder);
  const auto scanner = PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                                            .events = std::make_shared<SimulatedEventSource>()});
  const PlaybackScans scans(playback, machine, scanner, queue);
  const auto shown = [&] { return scanner->usbBuses.get().at(0).devices.begin()->name; };
  scanner->scan();
  queue->settle();
  EXPECT_EQ(shown(), "device 1");
  playback.start();
  for (int number = 2; number <= 100; ++number) {
    queue->advance(milliseconds(10));
    EXPECT_EQ(shown(), "device " + std::to_string(number));
  }
  playback.stepBack();
  queue->settle();
  EXPECT_EQ(shown(), "device 99");
}

TEST_F(PlaybackTest, ShowsTheLastOfSeveralStepsDuringAScan) {
  const TemporaryFolder folder;
  Playback playback(recordedDevices(folder, 5), 1, queue, {});
  const auto machine = std::make_shared<RecordedMachine>(playback.step().folder);
  const auto scanner = PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                                            .events = std::make_shared<SimulatedEventSource>()});
  const PlaybackScans scans(playback, machine, scanner, queue);
  playback.start();
  scanner->scan();
  queue->advanceWithoutBackground(milliseconds(100));
  EXPECT_TRUE(playback.isAtRest());
  EXPECT_FALSE(scans.isUpToDate());
  queue->settle();
  EXPECT_TRUE(scans.isUpToDate());
  EXPECT_EQ(scanner->usbBuses.get().at(0).devices.begin()->name, "device 5");
}

} // namespace
} // namespace tamberline
