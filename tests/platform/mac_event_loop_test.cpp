#include "platform/event_loop.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace tamberline {
namespace {

TEST(MacEventLoop, IsTheOneThatServesTheSystemsNotifications) {
  constexpr const char* variable = "QT_EVENT_DISPATCHER_CORE_FOUNDATION";
  for (const char* before : {"", "0", "1"}) {
    setenv(variable, before, 1);
    useSystemEventLoop();
    const char* const value = getenv(variable);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(std::string(value), "1");
  }
  unsetenv(variable);
}

} // namespace
} // namespace tamberline
