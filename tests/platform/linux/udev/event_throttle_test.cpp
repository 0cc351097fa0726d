#include "platform/linux/udev/event_throttle.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

/// A pacer on a clock that the test moves, and the times at which it passed events on.
class PacedEvents : public testing::Test {
protected:
  /// Sends an event at each of the times.
  void events(const std::vector<Milliseconds>& times) {
    for (const Milliseconds time : times) {
      moveTo(time);
      pacer->take();
    }
    moveTo(60s);
  }

  static std::vector<Milliseconds> every(Milliseconds step, Milliseconds end) {
    std::vector<Milliseconds> times;
    for (Milliseconds time = 0ms; time <= end; time += step) {
      times.push_back(time);
    }
    return times;
  }

  /// The times at which a listener acts that waits for 0.4 s without an event.
  std::vector<Milliseconds> actions() const {
    std::vector<Milliseconds> times;
    for (std::size_t index = 0; index < passed.size(); ++index) {
      if (index + 1 == passed.size() || passed[index + 1] - passed[index] >= 400ms) {
        times.push_back(passed[index] + 400ms);
      }
    }
    return times;
  }

  std::vector<Milliseconds> passed;
  std::unique_ptr<EventThrottle> pacer = std::make_unique<EventThrottle>(
      [this] { passed.push_back(now); }, [this] { return EventThrottle::Clock::time_point(now); },
      [this](Milliseconds delay, std::function<void()> call) {
        due = now + delay;
        waiting = std::move(call);
      });

private:
  void moveTo(Milliseconds time) {
    if (waiting && due <= time) {
      now = due;
      std::exchange(waiting, nullptr)();
    }
    now = time;
  }

  Milliseconds now = 0ms;
  Milliseconds due = 0ms;
  std::function<void()> waiting;
};

TEST_F(PacedEvents, PassAtOnce) {
  events({100ms, 200ms, 700ms});
  EXPECT_EQ(passed, (std::vector<Milliseconds>{100ms, 200ms, 700ms}));
}

TEST_F(PacedEvents, OfAStormLeadToAnActionEveryTwoSeconds) {
  events(every(200ms, 10s));
  ASSERT_FALSE(actions().empty());
  EXPECT_LE(actions().front(), 2s);
  for (std::size_t index = 1; index < actions().size(); ++index) {
    EXPECT_LE(actions()[index] - actions()[index - 1], 2s + 50ms);
  }
  EXPECT_GE(actions().back(), 10s + 400ms); // the last event counts
}

TEST_F(PacedEvents, OfADenseStormLeadToAnActionEveryTwoSecondsToo) {
  events(every(10ms, 5s));
  EXPECT_LE(actions().front(), 2s);
  EXPECT_GE(actions().size(), 3U);
  EXPECT_GE(actions().back(), 5s + 400ms);
}

TEST_F(PacedEvents, AfterAStormPassAtOnce) {
  std::vector<Milliseconds> times = every(100ms, 2s);
  times.push_back(10s);
  events(times);
  EXPECT_EQ(passed.back(), 10s);
}

TEST_F(PacedEvents, MayEndThePacer) {
  pacer = std::make_unique<EventThrottle>([this] { pacer.reset(); }, EventThrottle::Clock::now,
                                          [](Milliseconds, const std::function<void()>&) {});
  pacer->take();
  EXPECT_EQ(pacer, nullptr);
}

} // namespace
} // namespace tamberline
