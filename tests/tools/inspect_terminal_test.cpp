#include "pseudo_terminal.h"
#include "support/event_loop.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

namespace tamberline {
namespace {

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// In code points; no character of the desk sample is wider than one column.
std::size_t longestLine(const std::string& text) {
  std::size_t longest = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const auto length = std::count_if(line.begin(), line.end(), [](char byte) {
      return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    });
    longest = std::max(longest, static_cast<std::size_t>(length));
  }
  return longest;
}

class InspectInATerminal : public testing::Test {
protected:
  /// The program's output for the desk sample in this environment.
  static std::string output(unsigned short columns, const QString& environment) {
    PseudoTerminal terminal(columns);
    const QString script =
        "exec env -u COLUMNS -u NO_COLOR TERM=xterm " + environment + R"( "$@" >"$0")";
    QProcess program;
    program.start("/bin/sh",
                  {"-c", script, QString::fromStdString(terminal.path()), INSPECT_PROGRAM,
                   "--language", "en", "--reports", SAMPLES_FOLDER "/desk"});
    std::string text;
    EXPECT_TRUE(runEventsUntil([&] {
      text += terminal.takeOutput();
      return program.state() == QProcess::NotRunning;
    }));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardError().toStdString(), "");
    return text + terminal.takeOutput();
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
};

TEST_F(InspectInATerminal, WrapsItsLinesAtTheWidthOfTheTerminal) {
  EXPECT_EQ(longestLine(output(200, "NO_COLOR=1")), 121U);
  EXPECT_LE(longestLine(output(80, "NO_COLOR=1")), 80U);
  EXPECT_LE(longestLine(output(60, "NO_COLOR=1")), 60U);
}

TEST_F(InspectInATerminal, WrapsItsLinesAtTheGivenColumns) {
  EXPECT_EQ(output(80, "NO_COLOR=1 COLUMNS=60"), output(60, "NO_COLOR=1"));
  for (const char* nonsense : {"COLUMNS=", "COLUMNS=0", "COLUMNS=-3", "COLUMNS=wide"}) {
    EXPECT_EQ(output(60, QString("NO_COLOR=1 ") + nonsense), output(60, "NO_COLOR=1"));
  }
}

TEST_F(InspectInATerminal, WrapsNothingWhereTheWidthIsUnknown) {
  EXPECT_EQ(output(0, "NO_COLOR=1"), output(200, "NO_COLOR=1"));
  EXPECT_EQ(output(80, "NO_COLOR=1 COLUMNS=99999999999"), output(200, "NO_COLOR=1"));
}

TEST_F(InspectInATerminal, HasColoursOnRequest) {
  EXPECT_TRUE(contains(output(80, ""), "\x1b["));
  EXPECT_TRUE(contains(output(80, "NO_COLOR="), "\x1b["));
  EXPECT_FALSE(contains(output(80, "NO_COLOR=1"), "\x1b["));
  EXPECT_FALSE(contains(output(80, "TERM=dumb"), "\x1b["));
}

} // namespace
} // namespace tamberline
