#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// A recording of two samples, the second one a hundred seconds after the first.
class ReplayedRecording : public testing::Test {
protected:
  ReplayedRecording() {
    fs::copy(SAMPLES_FOLDER "/desk", recording / "step-000001-20261122T133500.000Z",
             fs::copy_options::recursive);
    fs::copy(SAMPLES_FOLDER "/road", recording / "step-000002-20261122T133640.000Z",
             fs::copy_options::recursive);
    fs::create_directory(recording / ".unfinished-step-000003-20261122T133641.000Z-12");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
  }

  void start(const fs::path& folder, const QStringList& others) {
    program.start(REPLAY_PROGRAM,
                  QStringList{QString::fromStdString(folder.string()), "--language", "en"} +
                      others);
    EXPECT_TRUE(program.waitForStarted());
  }

  std::string nextLine() {
    EXPECT_TRUE(runEventsUntil([this] { return program.canReadLine(); }));
    return program.readLine().toStdString();
  }

  std::string pictureOf(const fs::path& folder, const QStringList& others) {
    const fs::path file = temporary.path() / "picture.png";
    start(folder, QStringList{"--screenshot", QString::fromStdString(file.string())} + others);
    EXPECT_TRUE(program.waitForFinished());
    return contentOf(file);
  }

  /// The error of wrong arguments.
  std::string complaint(const fs::path& folder, const QStringList& others) {
    start(folder, others);
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 2);
    const std::string text = program.readAllStandardError().toStdString();
    return text.substr(0, text.find('\n'));
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  TemporaryFolder temporary;
  fs::path recording = [this] {
    const fs::path folder = temporary.path() / "recording";
    fs::create_directory(folder);
    return folder;
  }();
  QProcess program;
};

TEST_F(ReplayedRecording, PlaysUpToItsLastWholeStep) {
  start(recording, {"--speed", "1000"});
  EXPECT_EQ(nextLine(), "▶ 1/2  2026-11-22 13:35:00.000\n");
  EXPECT_EQ(nextLine(), "▶ 2/2  2026-11-22 13:36:40.000\n");
  program.kill();
  program.waitForFinished();
}

TEST_F(ReplayedRecording, IsShownInAPictureStepByStep) {
  EXPECT_EQ(pictureOf(recording, {}), pictureOf(SAMPLES_FOLDER "/desk", {}));
  EXPECT_EQ(pictureOf(recording, {"--step", "2"}), pictureOf(SAMPLES_FOLDER "/road", {}));
}

TEST_F(ReplayedRecording, IsShownInAPictureAtItsEndAfterPlaying) {
  EXPECT_EQ(pictureOf(recording, {"--speed", "1000"}), pictureOf(SAMPLES_FOLDER "/road", {}));
  EXPECT_EQ(pictureOf(recording, {"--speed", "1000", "--step", "1"}),
            pictureOf(SAMPLES_FOLDER "/desk", {}));
}

TEST_F(ReplayedRecording, SaysWhatIsWrongWithItsArguments) {
  const std::string name = "tamberline-replay: ";
  EXPECT_EQ(complaint(recording, {"--step", "3"}), name + "the recording has 2 steps");
  EXPECT_EQ(complaint(recording, {"--step", "0"}), name + "a step is a number from 1, not '0'");
  EXPECT_EQ(complaint(recording, {"--speed", "0"}),
            name + "the speed is a number from 0.01 to 1000, not '0'");
  EXPECT_EQ(complaint(SAMPLES_FOLDER "/desk", {"--speed", "2"}),
            name + "'" SAMPLES_FOLDER "/desk' is no recording: --speed and --step go with one");
}

} // namespace
} // namespace tamberline
