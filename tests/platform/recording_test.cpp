#include "platform/saved/recording.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

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

TEST_F(RecordingTest, SaysWhyAStepCannotBeWritten) {
  Recorder recorder(target);
  ASSERT_EQ(recorder.begin(), std::nullopt);
  fs::remove(target);
  EXPECT_EQ(recorder.add({{Question::usb, "1"}}, start), "No such file or directory");
}

} // namespace
} // namespace tamberline
