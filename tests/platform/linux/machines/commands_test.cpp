#include "platform/linux/machines/hand_driven_recording.h"
#include "platform/linux/machines/mocked_machine.h"
#include "platform/posix/child_process_runner.h"
#include "platform/saved/saved_reports.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;

/// Sockets of the laptop: of a monitor on its second port, and of its own.
const std::string onMonitor = "/devices/pci0000:00/0000:00:0d.0/usb1/1-2/1-2.4";
const std::string onBoard = "/devices/pci0000:00/0000:00:14.0/usb5/5-3";

struct Outcome {
  std::string output;
  std::optional<int> status;
};

/// Runs the program on the recorded machine.
Outcome inspect(std::vector<std::string> arguments) {
  arguments.insert(arguments.end(), {"--language", "en"});
  const ToolOutput output = ChildProcessRunner().runWithErrors(INSPECT_PROGRAM, arguments);
  return {output.standardOutput, output.exitStatus};
}

class MachineCommands : public testing::Test {
protected:
  MachineCommands() { machine.attach(usbStickAt(onMonitor)); }

  std::string file(const std::string& name) const { return (folder.path() / name).string(); }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  MockedMachine machine{"docked-laptop"};
  TemporaryFolder folder;
};

TEST_F(MachineCommands, SaveAMachineThatIsTheSame) {
  EXPECT_EQ(inspect({"save", file("saved")}).status, 0);
  EXPECT_EQ(inspect({"compare", file("saved")}).output, "No difference\n");
  EXPECT_EQ(inspect({"compare", file("saved"), "--json"}).status, 0);
  EXPECT_EQ(inspect({"--json"}).output, inspect({"--json", "--reports", file("saved")}).output);
}

TEST_F(MachineCommands, SaveAMachineWithoutWhatIdentifiesIt) {
  EXPECT_EQ(inspect({"save", "--anonymise", file("saved")}).status, 0);
  const std::string document = inspect({"--json", "--reports", file("saved")}).output;
  EXPECT_NE(document.find("Marble Stick"), std::string::npos);
  EXPECT_EQ(document.find("MS-0417"), std::string::npos);
}

TEST_F(MachineCommands, NeverSaveOverSomethingElse) {
  ASSERT_EQ(inspect({"save", file("saved")}).status, 0);
  const Outcome again = inspect({"save", file("saved")});
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.output,
            "tamberline-inspect: cannot save in '" + file("saved") + "': File exists\n");
}

TEST_F(MachineCommands, CompareAndExpectADeviceThatWentMovedOrBecameSlower) {
  ASSERT_EQ(inspect({"save", file("before")}).status, 0);
  ASSERT_EQ(inspect({"expect", "--write", file("desk.json")}).status, 0);
  EXPECT_EQ(inspect({"expect", file("desk.json")}).status, 0);

  machine.setAttribute(onMonitor, "speed", "12\n");
  const Outcome slower = inspect({"compare", file("before")});
  EXPECT_EQ(slower.status, 1);
  EXPECT_NE(slower.output.find("Slower  Marble Stick  480 Mb/s → 12 Mb/s\n"), std::string::npos)
      << slower.output;
  const Outcome tooSlow = inspect({"expect", file("desk.json")});
  EXPECT_EQ(tooSlow.status, 1);
  EXPECT_NE(tooSlow.output.find("12 Mb/s — expected at least 480 Mb/s"), std::string::npos)
      << tooSlow.output;

  machine.detach(onMonitor);
  const Outcome gone = inspect({"compare", file("before")});
  EXPECT_EQ(gone.status, 1);
  EXPECT_NE(gone.output.find("Gone  Marble Stick"), std::string::npos) << gone.output;
  EXPECT_NE(inspect({"expect", file("desk.json")}).output.find("Missing  Marble Stick"),
            std::string::npos);

  machine.attach(usbStickAt(onBoard));
  const Outcome moved = inspect({"compare", file("before")});
  EXPECT_EQ(moved.status, 1);
  EXPECT_NE(
      moved.output.find("Moved  Marble Stick  Thunderbolt Port 2 › Monitor Hub → USB 2.0 Bus"),
      std::string::npos)
      << moved.output;
}

TEST_F(MachineCommands, SayThatThereIsTrouble) {
  folder.save("wrong.json", "{\n  \"devices\": [{\"nam\": \"A\"}]\n}");
  EXPECT_EQ(inspect({"expect", file("wrong.json")}).output,
            "tamberline-inspect: " + file("wrong.json") + ":2: there is no key 'nam' here\n");
  EXPECT_EQ(inspect({"expect", file("wrong.json")}).status, 2);
  EXPECT_EQ(inspect({"expect", file("missing.json")}).status, 2);
  EXPECT_EQ(inspect({"compare", file("wrong.json")}).status, 2);
  EXPECT_EQ(inspect({"compare", folder.path().string()}).status, 2);
}

TEST_F(MachineCommands, PrintMetrics) {
  const Outcome metrics = inspect({"metrics"});
  EXPECT_EQ(metrics.status, 0);
  EXPECT_NE(metrics.output.find("device=\"Marble Stick\",vendor=\"0x0781\""), std::string::npos);
  EXPECT_TRUE(metrics.output.ends_with("\n# EOF\n"));
  EXPECT_EQ(inspect({"metrics", "--output", file("a.prom")}).output, "");
  EXPECT_EQ(inspect({"metrics", "--output", file("a.prom")}).status, 0);
}

/// The names of the devices of a step.
std::string devicesOf(const RecordedStep& step) {
  const json document = json::parse(inspect({"--json", "--reports", step.folder.string()}).output);
  std::string names;
  for (const json& entry : document["searchEntries"]) {
    names += entry["name"].get<std::string>() + "\n";
  }
  return names;
}

TEST_F(MachineCommands, RecordUntilTheyAreKilled) {
  QProcess recording;
  recording.start(INSPECT_PROGRAM, {"record", QString::fromStdString(file("recording"))});
  const auto waitForStep = [&] {
    return runEventsUntil([&] { return recording.canReadLine(); }) &&
           !recording.readLine().isEmpty();
  };
  ASSERT_TRUE(waitForStep());
  machine.detach(onMonitor);
  machine.attach(usbStickAt(onMonitor, "Stick 1", 41));
  ASSERT_TRUE(waitForStep());
  recording.kill();
  recording.waitForFinished();
  const std::vector<RecordedStep> steps = stepsIn(file("recording"));
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_NE(devicesOf(steps[0]).find("Marble Stick\n"), std::string::npos);
  EXPECT_NE(devicesOf(steps[1]).find("Stick 1\n"), std::string::npos);
}

TEST_F(MachineCommands, RecordNoMoreThanTheirLimit) {
  const Outcome full = inspect({"record", file("recording"), "--max-size", "0"});
  EXPECT_EQ(full.status, 2);
  EXPECT_EQ(full.output.substr(0, full.output.find('\n')),
            "tamberline-inspect: a size is a number of megabytes from 1 to 1000000, not '0'");
}

std::string usbReportOf(const std::filesystem::path& step) {
  return SavedReports(step).answer(Question::usb);
}

TEST_F(MachineCommands, RecordAHundredChangesInTheirOrder) {
  constexpr int changeCount = 100;
  Recorder recorder(file("recording"));
  ASSERT_EQ(recorder.begin(), std::nullopt);
  std::string lastStep;
  HandDrivenRecording recording(std::move(recorder),
                                {.stepAdded = [&](const auto& name) { lastStep = name; },
                                 .changeSkipped = [](const auto& why) { ADD_FAILURE() << why; },
                                 .ended = [](const auto& why) { ADD_FAILURE() << why; }});
  const auto hasStepWith = [&](const std::string& name) {
    return runEventsUntil([&] {
      recording.moveClock(500ms);
      return usbReportOf(folder.path() / "recording" / lastStep).find(name) != std::string::npos;
    });
  };
  for (int change = 1; change <= changeCount; ++change) {
    const std::string name = "Disk " + std::to_string(change);
    machine.detach(onMonitor);
    machine.attach(usbStickAt(onMonitor, name, 40 + change));
    ASSERT_TRUE(hasStepWith('"' + name + '"')) << change;
  }
  std::string nextName = "\"Marble Stick\"";
  int change = 0;
  for (const RecordedStep& step : stepsIn(file("recording"))) {
    if (usbReportOf(step.folder).find(nextName) != std::string::npos) {
      nextName = "\"Disk " + std::to_string(++change) + '"';
    }
  }
  EXPECT_EQ(change, changeCount + 1) << "there is no step with " << nextName << " after the others";
}

} // namespace
} // namespace tamberline
