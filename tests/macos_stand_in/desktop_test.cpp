#include "platform/desktop.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(MacDesktop, HasNoFolderForTheTracesOfARun) {
  EXPECT_TRUE(systemRuntimeFolder().isEmpty());
}

TEST(MacDesktop, LetsProgramsDecideWhereTheirWindowsStand) {
  EXPECT_EQ(windowPlacesHere()->decider(), WindowPlaces::Decider::program);
}

TEST(MacDesktop, StartsWithTheIconOnly) {
  EXPECT_FALSE(opensPanelAtStart());
  EXPECT_FALSE(takeStartInBackground()); // so that a second start raises the panel of the first
}

} // namespace
} // namespace tamberline
