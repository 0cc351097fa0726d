#include "platform/linux/machines/mocked_machine.h"
#include "platform/posix/child_process_runner.h"
#include "platform/posix/descriptor.h"
#include "platform/saved/recording.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <regex>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

const std::string stick = "/devices/pci0000:00/0000:00:0d.0/usb1/1-2/1-2.4";

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string outputOf(const std::string& program, const std::vector<std::string>& arguments) {
  const ToolOutput output = ChildProcessRunner().runWithErrors(program, arguments);
  EXPECT_EQ(output.exitStatus, 0) << output.standardOutput;
  return output.standardOutput;
}

/// Tells when something is made in a folder. Uses no event loop, because it must be fast.
class FolderWatch {
public:
  explicit FolderWatch(const fs::path& folder) : events_(inotify_init1(IN_CLOEXEC)) {
    EXPECT_GE(inotify_add_watch(events_.number(), folder.c_str(), IN_CREATE), 0);
  }

  bool waitForSomethingNew() const {
    constexpr int longEnoughForAnyMachine = 30'000;
    pollfd polled{events_.number(), POLLIN, 0};
    return poll(&polled, 1, longEnoughForAnyMachine) == 1;
  }

private:
  Descriptor events_;
};

/// A machine with a stick whose name the test changes, and a program that records it.
class KilledRecording : public testing::Test {
protected:
  KilledRecording() { machine.attach(usbStickAt(stick, "Disk 1", 41)); }

  /// The state of a step, from 1. Each has another name of the stick, which is read when the kernel
  /// has numbered it anew.
  void bringMachineTo(std::size_t state) {
    machine.setAttribute(stick, "product", "Disk " + std::to_string(state) + "\n");
    machine.setAttribute(stick, "devnum", std::to_string(40 + state) + "\n");
    machine.tellOfChange(stick);
  }

  bool isNextStepTold() {
    return runEventsUntil([this] { return program.canReadLine(); }) &&
           program.readLine().startsWith("step-");
  }

  /// Brings the machine from state to state, and kills the program in the middle of this step.
  /// Returns how many steps the program told of.
  std::size_t recordAndKillIn(std::size_t killedStep) {
    program.start(RECORDING_PROGRAM, {QString::fromStdString(recording.string())});
    for (std::size_t state = 1; state < killedStep; ++state) {
      if (!isNextStepTold()) {
        ADD_FAILURE() << "step " << state << " does not come";
        break;
      }
      if (state + 1 < killedStep) {
        bringMachineTo(state + 1);
      }
    }
    const FolderWatch watch(recording);
    bringMachineTo(killedStep);
    EXPECT_TRUE(watch.waitForSomethingNew());
    ::kill(static_cast<pid_t>(program.processId()), SIGKILL);
    program.waitForFinished();
    return killedStep - 1 + static_cast<std::size_t>(program.readAll().count('\n'));
  }

  /// As the program leaves a step if it was killed in the middle of it.
  void tearAStepIfNoneIsTorn(std::size_t number) const {
    const auto isTorn = [](const fs::directory_entry& entry) {
      return entry.path().filename().string().starts_with(unfinishedBeginning);
    };
    if (std::any_of(fs::directory_iterator(recording), fs::directory_iterator(), isTorn)) {
      return;
    }
    const fs::path torn = recording / (std::string(unfinishedBeginning) +
                                       nameOfStep(number, std::chrono::system_clock::now()) + "-1");
    fs::create_directory(torn);
    std::ofstream(torn / "SPUSBDataType.json") << R"({"SPUSBDataType": [{"_na)";
  }

  static std::string documentOf(const fs::path& reports) {
    return outputOf(INSPECT_PROGRAM, {"--json", "--language", "en", "--reports", reports.string()});
  }

  /// What `tamberline-replay` shows, and what it prints.
  std::string pictureOf(const fs::path& reports, const std::vector<std::string>& options = {}) {
    const fs::path file = temporary.path() / "picture.png";
    fs::remove(file);
    std::vector<std::string> arguments = {reports.string(), "--screenshot", file.string(),
                                          "--expand-all",   "--language",   "en"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    printed = outputOf(REPLAY_PROGRAM, arguments);
    return contentOf(file);
  }

  /// The machine itself in a state, saved.
  fs::path savedIn(std::size_t state) {
    bringMachineTo(state);
    fs::path saved = temporary.path() / ("state " + std::to_string(state));
    outputOf(INSPECT_PROGRAM, {"save", saved.string()});
    return saved;
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  MockedMachine machine{"docked-laptop"};
  TemporaryFolder temporary;
  fs::path recording = temporary.path() / "recording";
  QProcess program;
  std::string printed;
};

/// The lines without their times.
std::string printedSteps(const std::string& lines) {
  return std::regex_replace(lines, std::regex("  .*"), "");
}

std::string stepsUpTo(std::size_t count) {
  std::string text;
  for (std::size_t step = 1; step <= count; ++step) {
    text += "▶ " + std::to_string(step) + "/" + std::to_string(count) + "\n";
  }
  return text;
}

TEST_F(KilledRecording, IsPlayedUpToItsLastWholeStep) {
  constexpr std::size_t killedStep = 101; // after a hundred changes
  const std::size_t told = recordAndKillIn(killedStep);
  const std::vector<RecordedStep> steps = stepsIn(recording);
  const std::size_t last = steps.size();
  ASSERT_GE(last, told) << "a step is lost that was there";
  ASSERT_LE(last, killedStep) << "a step is counted that cannot be whole";
  tearAStepIfNoneIsTorn(last + 1);

  const std::string played = pictureOf(recording, {"--speed", "20"});
  EXPECT_EQ(printedSteps(printed), stepsUpTo(last));
  const fs::path machineThen = savedIn(last);
  EXPECT_TRUE(played == pictureOf(machineThen)) << "not the machine of the last whole step";
  EXPECT_FALSE(played == pictureOf(savedIn(last - 1)));
  EXPECT_EQ(documentOf(steps.back().folder), documentOf(machineThen));
}

} // namespace
} // namespace tamberline
