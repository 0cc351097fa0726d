#include "platform/desktop.h"

#include <QByteArray>
#include <QtGlobal>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(LinuxDesktop, ReportsOnceThatTheSessionStartedTheProgram) {
  qputenv("TAMBERLINE_START_IN_BACKGROUND", "1");
  EXPECT_TRUE(takeStartInBackground());
  EXPECT_FALSE(qEnvironmentVariableIsSet("TAMBERLINE_START_IN_BACKGROUND"));
  EXPECT_FALSE(takeStartInBackground());
}

TEST(LinuxDesktop, TreatsEveryOtherStartAsTheUsers) {
  for (const char* value : {"", "0", "yes"}) {
    qputenv("TAMBERLINE_START_IN_BACKGROUND", value);
    EXPECT_FALSE(takeStartInBackground()) << value;
  }
  EXPECT_TRUE(opensPanelOnStart());
  qunsetenv("TAMBERLINE_START_IN_BACKGROUND");
}

TEST(LinuxDesktop, LetsProgramsPositionTheirWindowsWithoutWayland) {
  EXPECT_EQ(makeWindowPlaces()->decider(), WindowPlaces::Decider::program);
}

} // namespace
} // namespace tamberline
