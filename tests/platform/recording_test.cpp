#include "platform/saved/recording.h"
#include "platform/saved/saved_reports.h"
#include "support/temporary_folder.h"

#include <QByteArray>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace tamberline {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using Time = std::chrono::system_clock::time_point;

const Time start{milliseconds(1'795'354'500'123)};

std::string namesOf(const std::vector<RecordedStep>& steps) {
  std::string names;
  for (const RecordedStep& step : steps) {
    names += step.folder.filename().string() + "\n";
  }
  return names;
}

class RecordingTest : public testing::Test {
protected:
  TemporaryFolder folder;
  fs::path target = folder.path() / "recording";
};

TEST_F(RecordingTest, KeepsEachStepWithItsTime) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  ASSERT_EQ(recorder.add({{Question::usb, "1"}}, start), std::nullopt);
  EXPECT_EQ(recorder.lastName(), "step-000001-20261122T133500.123Z");
  ASSERT_EQ(recorder.add({{Question::usb, "2"}}, start + milliseconds(1500)), std::nullopt);
  const std::vector<RecordedStep> steps = stepsIn(target);
  EXPECT_EQ(namesOf(steps), "step-000001-20261122T133500.123Z\nstep-000002-20261122T133501.623Z\n");
  EXPECT_EQ(steps[0].time, start);
  EXPECT_EQ(steps[1].time, start + milliseconds(1500));
}

/// The local time zone of this process, until it is destroyed.
class LocalTimeZone {
public:
  explicit LocalTimeZone(const char* rule)
      : before_(qgetenv("TZ")), wasSet_(qEnvironmentVariableIsSet("TZ")) {
    qputenv("TZ", rule);
  }
  ~LocalTimeZone() { wasSet_ ? qputenv("TZ", before_) : qunsetenv("TZ"); }
  LocalTimeZone(const LocalTimeZone&) = delete;
  LocalTimeZone& operator=(const LocalTimeZone&) = delete;

private:
  QByteArray before_;
  bool wasSet_;
};

TEST_F(RecordingTest, ReadsTimesThatLocalClocksSkip) {
  const LocalTimeZone centralEurope("CET-1CEST,M3.5.0,M10.5.0/3");
  const auto time = timeOfStep("step-000001-20260329T023000.123Z");
  ASSERT_TRUE(time);
  EXPECT_EQ(*time, Time(milliseconds(1'774'751'400'123)));
  EXPECT_EQ(nameOfStep(1, *time), "step-000001-20260329T023000.123Z");
}

TEST_F(RecordingTest, ReadsTheTimesThatItWrites) {
  for (const char* name : {"step-000007-20240229T235959.999Z", "step-000007-19700101T000000.000Z",
                           "step-000007-22611231T235959.999Z"}) {
    const auto time = timeOfStep(name);
    ASSERT_TRUE(time) << name;
    EXPECT_EQ(nameOfStep(7, *time), name);
  }
  for (const char* name :
       {"step-000007-99991231T235959.999Z", "step-000007-22620101T000000.000Z",
        "step-000007-19691231T235959.999Z", "step-000007--0011231T235959.999Z",
        "step-000007-20260229T000000.000Z", "step-000007-20260228T240000.000Z",
        "step-000007-20260228000000.000Z", "step-000007-20260228T000000.000", "step-000007-2026"}) {
    EXPECT_FALSE(timeOfStep(name)) << name;
  }
}

TEST_F(RecordingTest, SharesTheFilesThatDidNotChange) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  recorder.add({{Question::usb, "1"}, {Question::deviceTree, "large"}}, start);
  recorder.add({{Question::usb, "2"}, {Question::deviceTree, "large"}}, start);
  const fs::path last = stepsIn(target).back().folder;
  EXPECT_EQ(fs::hard_link_count(last / "IODeviceTree.plist"), 2U);
  EXPECT_EQ(fs::hard_link_count(last / "SPUSBDataType.json"), 1U);
}

TEST_F(RecordingTest, NeverBeginsOverSomethingElse) {
  folder.save("recording", "a file");
  EXPECT_EQ(Recorder(target).begin(), "File exists");
  fs::remove(target);
  fs::create_directory(target);
  EXPECT_EQ(Recorder(target).begin(), std::nullopt);
  folder.save("recording/else", "");
  EXPECT_EQ(Recorder(target).begin(), "File exists");
  EXPECT_EQ(Recorder(folder.path() / "no" / "such").begin(), "No such file or directory");
}

TEST_F(RecordingTest, CountsNothingThatIsNoWholeStep) {
  for (const char* name : {".unfinished-step-000001-20261122T133500.123Z-12",
                           "step-x-20261122T133500.123Z", "step-000001-20261322T133500.123Z",
                           "step-000001", "step-000001-20261122T133500.123Z-x", "other"}) {
    fs::create_directories(target / name);
  }
  folder.save("recording/step-000002-20261122T133500.123Z", "a file");
  EXPECT_EQ(namesOf(stepsIn(target)), "");
  EXPECT_EQ(namesOf(stepsIn(folder.path() / "missing")), "");
}

TEST_F(RecordingTest, IsNotHiddenByALinkThatLeadsNowhere) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  for (int step = 0; step < 20; ++step) {
    recorder.add({{Question::usb, std::to_string(step)}}, start);
  }
  fs::create_symlink("nowhere", target / "step-000000-20261122T133500.123Z");
  fs::create_symlink("nowhere", target / "other");
  EXPECT_EQ(stepsIn(target).size(), 20U);
}

TEST_F(RecordingTest, DoesNotReachBeyondItsFolder) {
  fs::create_directories(folder.path() / "private");
  fs::create_directory(target);
  fs::create_directory_symlink("../private", target / "step-000001-20261122T133500.123Z");
  EXPECT_EQ(namesOf(stepsIn(target)), "");
}

TEST_F(RecordingTest, EndsBeforeItTakesMoreThanItsLimit) {
  // A folder and a file for each step: 12 KB and 4 KB, in blocks.
  Recorder recorder(target, 1'000'000);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  const auto addStep = [&](char letter) {
    return recorder.add({{Question::usb, std::string(10'000, letter)}}, start);
  };
  char letter = 'A';
  while (!addStep(letter)) {
    ++letter;
    ASSERT_LT(letter, 'A' + 100);
  }
  EXPECT_EQ(letter, 'A' + 61) << "each step takes 16,384 bytes";
  EXPECT_EQ(addStep('z'), "the recording would take more than 1 MB");
  EXPECT_EQ(stepsIn(target).size(), 61U);
}

std::string usbReportOf(const RecordedStep& step) {
  return SavedReports(step.folder).answer(Question::usb);
}

TEST_F(RecordingTest, ChangesTheStepsThatItHas) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  for (const char* usb : {"1", "2", "3"}) {
    recorder.add({{Question::usb, usb}, {Question::deviceTree, "large"}}, start);
  }
  const std::vector<std::string> reports = {"one", "one", "3"};
  ASSERT_EQ(recorder.change([&](std::size_t index) {
    return Answers{{Question::usb, reports.at(index)}, {Question::deviceTree, "changed"}};
  }),
            std::nullopt);
  const std::vector<RecordedStep> steps = stepsIn(target);
  ASSERT_EQ(steps.size(), 3U);
  for (std::size_t index = 0; index < steps.size(); ++index) {
    EXPECT_EQ(usbReportOf(steps[index]), reports[index]);
    const fs::path large = steps[index].folder / "IODeviceTree.plist";
    EXPECT_EQ(fs::file_size(large), std::string("changed").size());
    EXPECT_EQ(fs::hard_link_count(large), 3U) << "shared as before";
  }
  EXPECT_EQ(fs::hard_link_count(steps[0].folder / "SPUSBDataType.json"), 2U) << "equal now";
}

TEST_F(RecordingTest, SharesFilesWithAStepThatWasChanged) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  recorder.add({{Question::usb, "1"}}, start);
  recorder.change([](std::size_t) { return Answers{{Question::usb, "one"}}; });
  recorder.add({{Question::usb, "one"}}, start);
  recorder.add({{Question::usb, "1"}}, start);
  const std::vector<RecordedStep> steps = stepsIn(target);
  ASSERT_EQ(steps.size(), 3U);
  EXPECT_EQ(fs::hard_link_count(steps[0].folder / "SPUSBDataType.json"), 2U);
  EXPECT_EQ(usbReportOf(steps[2]), "1");
}

TEST_F(RecordingTest, LeavesTheFilesThatDoNotChange) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  recorder.add({{Question::usb, "1"}, {Question::power, "same"}}, start);
  const fs::path report = stepsIn(target).front().folder / "SPPowerDataType.json";
  fs::create_hard_link(report, folder.path() / "first");
  recorder.change([](std::size_t) {
    return Answers{{Question::usb, "2"}, {Question::power, "same"}};
  });
  EXPECT_TRUE(fs::equivalent(report, folder.path() / "first"));
}

TEST_F(RecordingTest, CountsWhatItChangedOnce) {
  Recorder recorder(target, 1'000'000);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  const Answers large = {{Question::usb, std::string(300'000, 'a')}};
  ASSERT_EQ(recorder.add(large, start), std::nullopt);
  for (int time = 0; time < 10; ++time) {
    const char letter = static_cast<char>('b' + time);
    ASSERT_EQ(recorder.change([letter](std::size_t) {
      return Answers{{Question::usb, std::string(300'000, letter)}};
    }),
              std::nullopt);
  }
  EXPECT_EQ(recorder.add(large, start), std::nullopt);
  EXPECT_EQ(recorder.add({{Question::usb, std::string(300'000, 'x')}}, start), std::nullopt);
  EXPECT_EQ(recorder.add(large, start), "the recording would take more than 1 MB");
}

TEST_F(RecordingTest, CountsSharedFilesOnce) {
  Recorder recorder(target, 1'000'000);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  for (int step = 0; step < 30; ++step) {
    ASSERT_EQ(recorder.add({{Question::deviceTree, std::string(700'000, 'x')},
                            {Question::usb, std::to_string(step)}},
                           start),
              std::nullopt)
        << step;
  }
}

/// Writes steps until it is killed, and a byte for each.
[[noreturn]] void recordEndlessly(const fs::path& recording, int told) {
  Recorder recorder(recording);
  recorder.begin();
  for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
    recorder.add({{Question::usb, std::string(300'000, letter)}, {Question::power, "same"}}, start);
    if (write(told, &letter, 1) != 1) {
      _exit(1);
    }
  }
}

/// Has three steps that it changes until it is killed; writes a byte after each change.
[[noreturn]] void changeEndlessly(const fs::path& recording, int told) {
  Recorder recorder(recording);
  recorder.begin();
  for (int step = 0; step < 3; ++step) {
    recorder.add({{Question::usb, std::string(300'000, 'a')}, {Question::power, "same"}}, start);
  }
  for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
    recorder.change([letter](std::size_t) {
      return Answers{{Question::usb, std::string(300'000, letter)}, {Question::power, "same"}};
    });
    if (write(told, &letter, 1) != 1) {
      _exit(1);
    }
  }
}

using Record = void (*)(const fs::path& recording, int told);

/// Kills the recording process after it has told so often, in the middle of whatever it does then.
void recordAndKill(Record record, const fs::path& recording, int stepCount) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    record(recording, ends[1]);
  }
  close(ends[1]);
  for (int step = 0; step < stepCount; ++step) {
    char letter = 0;
    ASSERT_EQ(read(ends[0], &letter, 1), 1);
  }
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ends[0]);
}

TEST_F(RecordingTest, HasWholeStepsOnlyWhenItsProgramWasKilled) {
  for (int stepCount = 1; stepCount <= 10; ++stepCount) {
    const fs::path recording = folder.path() / std::to_string(stepCount);
    recordAndKill(recordEndlessly, recording, stepCount);
    const std::vector<RecordedStep> steps = stepsIn(recording);
    EXPECT_GE(steps.size(), static_cast<std::size_t>(stepCount));
    for (const RecordedStep& step : steps) {
      EXPECT_EQ(fs::file_size(step.folder / "SPUSBDataType.json"), 300'000U) << step.folder;
      EXPECT_EQ(fs::file_size(step.folder / "SPPowerDataType.json"), 4U) << step.folder;
    }
  }
}

TEST_F(RecordingTest, HasWholeFilesWhenItsProgramWasKilledWhileItChangedThem) {
  for (int changeCount = 1; changeCount <= 10; ++changeCount) {
    const fs::path recording = folder.path() / std::to_string(changeCount);
    recordAndKill(changeEndlessly, recording, changeCount);
    const std::vector<RecordedStep> steps = stepsIn(recording);
    ASSERT_EQ(steps.size(), 3U);
    for (const RecordedStep& step : steps) {
      const std::string report = usbReportOf(step);
      EXPECT_EQ(report, std::string(300'000, report.empty() ? ' ' : report.front())) << step.folder;
      EXPECT_EQ(fs::file_size(step.folder / "SPPowerDataType.json"), 4U) << step.folder;
    }
  }
}

TEST_F(RecordingTest, SaysWhyAStepCannotBeWritten) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  fs::remove(target);
  EXPECT_EQ(recorder.add({{Question::usb, "1"}}, start), "No such file or directory");
}

TEST_F(RecordingTest, SaysWhyAStepCannotBeChanged) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  ASSERT_EQ(recorder.add({{Question::usb, "1"}}, start), std::nullopt);
  fs::remove_all(target);
  EXPECT_EQ(recorder.change([](std::size_t) {
    return Answers{{Question::usb, "2"}};
  }),
            "No such file or directory");
}

} // namespace
} // namespace tamberline
