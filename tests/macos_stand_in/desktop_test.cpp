#include "platform/desktop.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(MacDesktop, HasNoFolderForTheTracesOfARun) {
  EXPECT_TRUE(systemRuntimeFolder().isEmpty());
}

TEST(MacDesktop, LeavesNoClickToThePanelWhereItsMenuBarKnowsAMenu) {
  EXPECT_TRUE(everyClickOpensTrayMenu());
}

} // namespace
} // namespace tamberline
