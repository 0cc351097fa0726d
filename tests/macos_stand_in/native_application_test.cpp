#include "macos_stand_in/fake_app_kit.h"
#include "platform/macos/native_application.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

class MacApplication : public testing::Test {
protected:
  void SetUp() override { FakeAppKit::reset(); }
  void TearDown() override { EXPECT_EQ(kit.heldReferences, 0); }

  FakeAppKit& kit = FakeAppKit::get();
  int count = 0;
};

TEST_F(MacApplication, ReportsEachPressOfAButtonElsewhereWhileItIsWatched) {
  {
    const OutsideClicks clicks([this] { ++count; });
    EXPECT_EQ(kit.calls, Calls{"monitor 200000a"}); // the left, right and other buttons
    EXPECT_TRUE(kit.clickElsewhere());
    EXPECT_TRUE(kit.clickElsewhere());
    EXPECT_EQ(count, 2);
  }
  EXPECT_EQ(kit.calls.back(), "remove monitor");
  EXPECT_FALSE(kit.clickElsewhere());
}

TEST_F(MacApplication, CanStopWatchingClicksDuringAClick) {
  std::optional<OutsideClicks> clicks;
  const auto counter = std::make_shared<int>(0);
  clicks.emplace([&clicks, counter] {
    clicks.reset();
    ++*counter;
  });
  EXPECT_TRUE(kit.clickElsewhere());
  EXPECT_EQ(*counter, 1);
  EXPECT_FALSE(kit.clickElsewhere());
}

TEST_F(MacApplication, DoesWithoutAMonitorThatTheSystemRefuses) {
  kit.givesMonitor = false;
  {
    const OutsideClicks clicks([] {});
  }
  EXPECT_EQ(kit.calls, Calls{"monitor 200000a"});
}

TEST_F(MacApplication, ReportsThatItIsOpenedAgain) {
  {
    const ReopenRequests requests([this] { ++count; });
    EXPECT_EQ(kit.calls, Calls{"handle reopening"});
    EXPECT_TRUE(kit.reopen());
    EXPECT_EQ(count, 1);
  }
  EXPECT_EQ(kit.calls.back(), "ignore reopening");
  EXPECT_FALSE(kit.reopen());
}

TEST_F(MacApplication, IsHiddenOnlyIfItIsActive) {
  hideActiveApplication();
  EXPECT_EQ(kit.calls, Calls{});
  kit.isActive = true;
  hideActiveApplication();
  EXPECT_EQ(kit.calls, Calls{"hide"});
}

} // namespace
} // namespace tamberline
