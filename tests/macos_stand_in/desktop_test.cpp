#include "platform/desktop.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(MacDesktop, HasNoRuntimeFolder) {
  EXPECT_TRUE(systemRuntimeFolder().isEmpty());
}

TEST(MacDesktop, LetsProgramsPositionTheirWindows) {
  EXPECT_EQ(makeWindowPlaces()->decider(), WindowPlaces::Decider::program);
}

TEST(MacDesktop, StartsWithTheIconOnly) {
  EXPECT_FALSE(opensPanelOnStart());
  EXPECT_FALSE(takeStartInBackground()); // so that a second start raises the first one's panel
}

} // namespace
} // namespace tamberline
