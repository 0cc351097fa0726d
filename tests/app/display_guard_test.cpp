#include "app/display_guard.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(DisplayFailure, NamesTheDisplaysOfTheEnvironment) {
  struct Row {
    QString wayland;
    QString x11;
    QString expected;
  };
  const std::vector<Row> rows = {
      {"", "", "prog: no display can be opened (WAYLAND_DISPLAY is not set, DISPLAY is not set)"},
      {"", ":7", "prog: no display can be opened (WAYLAND_DISPLAY is not set, DISPLAY is ':7')"},
      {"wayland-0", "",
       "prog: no display can be opened (WAYLAND_DISPLAY is 'wayland-0', DISPLAY is not set); "
       "Wayland needs Qt's plugin for it (package qt6-wayland)"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(displayFailureText("prog", row.wayland, row.x11).toStdString(),
              row.expected.toStdString());
  }
}

TEST(DisplayGuardDeathTest, EndsTheProgramWithOneSentenceIfQtAborts) {
  EXPECT_EXIT(
      {
        qunsetenv("WAYLAND_DISPLAY");
        qunsetenv("DISPLAY");
        qunsetenv("QT_QPA_PLATFORM");
        const DisplayGuard guard("prog");
        qWarning("could not connect to display");
        qFatal("This application failed to start");
      },
      testing::ExitedWithCode(1),
      "^prog: no display can be opened \\(WAYLAND_DISPLAY is not set, DISPLAY is not set\\)\n$");
}

int warnings = 0;
void countWarning(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                  const QString& /*text*/) {
  ++warnings;
}

TEST(DisplayGuard, PrintsQtsMessagesOnSuccess) {
  warnings = 0;
  const QtMessageHandler former = qInstallMessageHandler(countWarning);
  {
    const DisplayGuard guard("prog");
    qWarning("one");
    qWarning("two");
    EXPECT_EQ(warnings, 0);
  }
  EXPECT_EQ(warnings, 2);
  qInstallMessageHandler(former);
}

} // namespace
} // namespace tamberline
