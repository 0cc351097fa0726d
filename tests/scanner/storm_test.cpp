#include "base/seeded_generator.h"
#include "scanner_fixture.h"
#include "support/tree_text.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class Storm : public ScannerFixture {
protected:
  std::size_t scanCount() const { return machine->askCount(Question::usb); }

  /// 100,000 events, a hundred in each millisecond of a second.
  void letEventsStorm() const {
    for (int millisecond = 0; millisecond < 1'000; ++millisecond) {
      for (int event = 0; event < 100; ++event) {
        events->changeRegistry();
      }
      queue->advance(1ms);
    }
  }
};

TEST_F(Storm, OfAHundredThousandEventsEndsInOneScanAndTheOneThatFollowsEach) {
  scan();
  letEventsStorm();
  EXPECT_EQ(queue->delayedCount(), 1U);
  queue->advance(398ms);
  EXPECT_EQ(scanCount(), 1U);
  queue->advance(1ms);
  EXPECT_EQ(scanCount(), 2U);
  queue->advance(2s);
  EXPECT_EQ(scanCount(), 3U);
  queue->advance(24h);
  EXPECT_EQ(scanCount(), 3U);
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(Storm, OfPowerEventsEndsInOneScanAndTheOneThatFollowsEach) {
  scan();
  for (int event = 0; event < 100'001; ++event) {
    events->changePower(event % 2 == 1);
  }
  EXPECT_EQ(queue->delayedCount(), 1U);
  queue->advance(1'900ms);
  EXPECT_EQ(scanCount(), 2U);
  queue->advance(24h);
  EXPECT_EQ(scanCount(), 3U);
}

TEST_F(Storm, WhileAToolIsSlowStartsNoOther) {
  scanner->scan();
  queue->settle();
  scanner->scan();
  for (int burst = 0; burst < 1'000; ++burst) {
    events->changeRegistry();
    queue->advanceWithoutBackground(500ms);
    ASSERT_LE(queue->backgroundCount(), 4U);
    ASSERT_LE(queue->delayedCount(), 4U); // the follow-ups of the last two seconds
  }
  EXPECT_EQ(scanCount(), 1U);
  queue->settle();
  EXPECT_EQ(scanCount(), 2U) << "the slow one ended";
  queue->advance(24h);
  EXPECT_EQ(scanCount(), 6U) << "the follow-ups that were not due before";
}

/// The times of scans according to the monitor's rules: 0.4 s after the last event of a burst, and
/// again two seconds later. A change of the power source counts as an event once it has held for
/// 1.5 s.
class DueScans {
public:
  using Time = std::chrono::milliseconds;

  void attachOrDetach(Time time) {
    letPass(time);
    burstEnds_ = time + 400ms;
  }

  void changePower(Time time, bool isOnAC) {
    letPass(time);
    powerHolds_ = isOnAC == wasOnAC_ ? std::nullopt : std::optional(time + 1'500ms);
  }

  /// The number of scans that are due up to and including this time.
  std::size_t countUntil(Time time) {
    letPass(time);
    return static_cast<std::size_t>(
        std::count_if(due_.begin(), due_.end(), [&](Time scan) { return scan <= time; }));
  }

private:
  void letPass(Time time) {
    if (powerHolds_ && *powerHolds_ <= time) {
      endBurstBy(*powerHolds_ -
                 1ms); // at the same time, the source comes first because it waited longer
      wasOnAC_ = !wasOnAC_;
      burstEnds_ = *powerHolds_ + 400ms;
      powerHolds_ = std::nullopt;
    }
    endBurstBy(time);
  }

  void endBurstBy(Time time) {
    if (burstEnds_ && *burstEnds_ <= time) {
      due_.push_back(*burstEnds_);
      due_.push_back(*burstEnds_ + 2s);
      burstEnds_ = std::nullopt;
    }
  }

  std::optional<Time> burstEnds_;
  std::optional<Time> powerHolds_;
  bool wasOnAC_ = true;
  std::vector<Time> due_;
};

/// Plugs devices and the charger in and out at random.
class RestlessHands : public Storm {
protected:
  using Generator = std::mt19937_64;

  /// Whether each device is attached, by its number.
  static constexpr std::size_t deviceCount = 12;

  void plug() {
    auto device = attached.begin() + static_cast<std::ptrdiff_t>(generator() % deviceCount);
    *device = !*device;
    machine->answer(Question::thunderbolt,
                    R"({"SPThunderboltDataType": [{"_name": "thunderbolt_bus_0"}]})");
    std::string entries;
    for (std::size_t number = 0; number < deviceCount; ++number) {
      if (attached.at(number)) {
        entries += (entries.empty() ? "" : ", ") + (R"({"_name": ")" + nameOf(number) + R"("})");
      }
    }
    machine->answer(Question::usb,
                    R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [)" + entries + "]}]}");
    events->changeRegistry();
    due.attachOrDetach(queue->now());
  }

  void pullOrPlugCharger() {
    isOnAC = !isOnAC;
    events->changePower(isOnAC);
    due.changePower(queue->now(), isOnAC);
  }

  static std::string nameOf(std::size_t number) { return "Device " + std::to_string(number); }

  std::chrono::milliseconds upTo(std::chrono::milliseconds longest) {
    return std::chrono::milliseconds(generator() % static_cast<std::uint64_t>(longest.count() + 1));
  }

  void expectTheMachineAsItIs() {
    std::string tree = "port 1\nbus USB 3.1 Bus\n";
    for (std::size_t number = 0; number < deviceCount; ++number) {
      if (attached.at(number)) {
        tree += "  usb " + nameOf(number) + " (10 Gb/s, 900 mA)\n";
      }
    }
    EXPECT_EQ(treeText(scanner->portTree.get()), tree);
    EXPECT_FALSE(scanner->isScanning.get());
    EXPECT_FALSE(scanner->errorMessage.get().has_value());
    EXPECT_EQ(queue->delayedCount(), 0U);
  }

  const std::uint64_t seed = seededGenerator()();
  Generator generator{seed};
  std::vector<bool> attached = std::vector<bool>(deviceCount, false);
  bool isOnAC = true;
  DueScans due;
};

TEST_F(RestlessHands, AreFollowedForTenMinutes) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  scan();
  const std::size_t scansBefore = scanCount();
  plug();
  const std::chrono::milliseconds end = queue->now() + 10min;
  int settledCount = 0;
  while (queue->now() < end && !HasFailure()) {
    for (std::uint64_t act = generator() % 8; act > 0; --act) {
      generator() % 5 == 0 ? pullOrPlugCharger() : plug();
      queue->advance(upTo(generator() % 3 == 0 ? 2'500ms : 500ms));
      EXPECT_EQ(scanCount() - scansBefore, due.countUntil(queue->now()));
    }
    queue->advance(5s);
    ++settledCount;
    expectTheMachineAsItIs();
    EXPECT_EQ(scanCount() - scansBefore, due.countUntil(queue->now()));
  }
  EXPECT_GT(settledCount, 40);
}

} // namespace
} // namespace tamberline
