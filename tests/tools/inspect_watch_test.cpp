#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QProcess>
#include <QRegularExpression>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <string>

namespace tamberline {
namespace {

using nlohmann::json;

/// The program, watching a folder of saved reports.
class WatchingProgram : public testing::Test {
protected:
  WatchingProgram() {
    folder.save("SPThunderboltDataType.json", R"({"SPThunderboltDataType": []})");
    folder.save("SPPowerDataType.json", R"({"SPPowerDataType": []})");
    plugIn("First Stick");
  }

  void plugIn(const std::string& name) const {
    folder.save("SPUSBDataType.json",
                R"({"SPUSBDataType": [{"_items": [{"_name": ")" + name + "\"}]}]}");
  }

  QStringList arguments(const QStringList& others) const {
    return QStringList{"--language", "en", "--watch", "--reports",
                       QString::fromStdString(folder.path().string())} +
           others;
  }

  void start(const QStringList& others) {
    program.start(INSPECT_PROGRAM, arguments(others));
    EXPECT_TRUE(program.waitForStarted());
  }

  std::string nextLine() {
    EXPECT_TRUE(runEventsUntil([this] { return program.canReadLine(); }));
    return program.readLine().toStdString();
  }

  /// The time in the line above a text, read as UTC.
  QDateTime nextTime() {
    const std::string line = nextLine();
    const QRegularExpression form(QStringLiteral("^──── (.*) ────\n$"));
    const QRegularExpressionMatch match = form.match(QString::fromStdString(line));
    const QDateTime time =
        QDateTime::fromString(match.captured(1), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    EXPECT_TRUE(time.isValid()) << line;
    return QDateTime(time.date(), time.time(), QTimeZone::utc());
  }

  std::string nextTextUpToABlankLine() {
    std::string text;
    for (std::string line = nextLine(); line != "\n"; line = nextLine()) {
      text += line;
    }
    return text;
  }

  /// Ends the program with a signal; returns whether it shut down cleanly.
  bool ends(int signal) {
    kill(static_cast<pid_t>(program.processId()), signal);
    return program.waitForFinished() && program.exitStatus() == QProcess::NormalExit &&
           program.exitCode() == 0;
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  TemporaryFolder folder;
  QProcess program;
};

TEST_F(WatchingProgram, PrintsOneLineOfJsonForEachChange) {
  start({"--json"});
  EXPECT_EQ(json::parse(nextLine())["usbBuses"][0]["devices"][0]["name"], "First Stick");
  plugIn("Second Stick");
  EXPECT_EQ(json::parse(nextLine())["usbBuses"][0]["devices"][0]["name"], "Second Stick");
  EXPECT_TRUE(ends(SIGINT));
  EXPECT_EQ(program.readAllStandardOutput().toStdString(), "");
}

TEST_F(WatchingProgram, PrintsTheTextAgainForEachChange) {
  start({});
  nextTime();
  EXPECT_EQ(nextTextUpToABlankLine(), "USB Bus\n└─ First Stick  —\n");
  plugIn("Second Stick");
  nextTime();
  EXPECT_EQ(nextTextUpToABlankLine(), "USB Bus\n└─ Second Stick  —\n");
  EXPECT_TRUE(ends(SIGTERM));
}

TEST_F(WatchingProgram, PrintsTheLocalTimeAboveEachText) {
  qputenv("TZ", "XYZ-05:30"); // 5.5 hours ahead of UTC
  const QDateTime before = QDateTime::currentDateTimeUtc();
  start({});
  const QDateTime time = nextTime();
  const QDateTime after = QDateTime::currentDateTimeUtc();
  constexpr int secondsBeforeGreenwich = (5 * 60 + 30) * 60;
  EXPECT_GE(time, before.addSecs(secondsBeforeGreenwich - 1));
  EXPECT_LE(time, after.addSecs(secondsBeforeGreenwich));
  EXPECT_TRUE(ends(SIGTERM));
}

TEST_F(WatchingProgram, PrintsNothingForAChangeThatChangesNothing) {
  start({"--json"});
  nextLine();
  folder.save("a file of another name", "");
  plugIn("First Stick");
  plugIn("Second Stick");
  EXPECT_EQ(json::parse(nextLine())["usbBuses"][0]["devices"][0]["name"], "Second Stick");
  EXPECT_TRUE(ends(SIGTERM));
}

TEST_F(WatchingProgram, ContinuesAfterAFailedScan) {
  folder.save("SPUSBDataType.json", "this is no JSON");
  start({"--json"});
  EXPECT_EQ(json::parse(nextLine())["errorMessage"], "Could not parse SPUSBDataType");
  plugIn("First Stick");
  EXPECT_EQ(json::parse(nextLine())["errorMessage"], nullptr);
  EXPECT_TRUE(ends(SIGTERM));
  EXPECT_EQ(program.readAllStandardError().toStdString(),
            "tamberline-inspect: Could not parse SPUSBDataType\n");
}

TEST_F(WatchingProgram, EndsWhenItsReaderHasGone) {
  program.start("/bin/sh", QStringList{"-c", R"({ "$@"; echo "status $?" >&2; } | head -n 1)", "sh",
                                       INSPECT_PROGRAM} +
                               arguments({"--json"}));
  nextLine();
  plugIn("Second Stick");
  EXPECT_TRUE(runEventsUntil([this] { return program.state() == QProcess::NotRunning; }));
  EXPECT_EQ(program.readAllStandardError().toStdString(),
            "status " + std::to_string(128 + SIGPIPE) + "\n");
}

} // namespace
} // namespace tamberline
