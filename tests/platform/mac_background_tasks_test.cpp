#include "macos_stand_in/threads.h"
#include "platform/background_tasks.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(MacBackgroundTask, HasTheUserInitiatedPriority) {
  const std::vector<std::string>& priorities = freshMacPriorities();
  becomeUserInitiatedTask();
  EXPECT_EQ(priorities, std::vector<std::string>{"19 0"});
}

} // namespace
} // namespace tamberline
