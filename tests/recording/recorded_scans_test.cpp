#include "anonymity/saved_machines.h"
#include "recording/recorded_scans.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Records a machine whose answers a test changes.
class Recording {
public:
  Recording(fs::path folder, bool isAnonymous, std::uintmax_t maxBytes = usualMaxRecordingBytes)
      : folder_(std::move(folder)),
        scans_(
            {.scanner = scanner_,
             .machine = kept_,
             .queue = queue_,
             .recorder = begunRecorder(maxBytes),
             .anonymiser = isAnonymous ? std::optional<Anonymiser>(std::in_place) : std::nullopt},
            {.stepAdded = [this](const std::string& name) { told += "step " + name + "\n"; },
             .changeSkipped = [this](const std::string& why) { told += why + "\n"; },
             .ended = [this](const std::string& why) { told += why + "\n"; }}) {}

  /// The machine answers so from now on, and something was plugged in or out. A dump that it does
  /// not have is empty.
  void becomes(const Answers& answers) {
    for (const Question question : questionsOfAScan) {
      machine_->answer(question, R"(<plist version="1.0"><array/></plist>)");
    }
    for (const auto& [question, answer] : answers) {
      machine_->answer(question, answer);
    }
    if (events_->isRunning()) {
      events_->changeRegistry();
    } else {
      scanner_->scan();
    }
    queue_->advance(10s);
  }

  std::vector<RecordedStep> steps() const { return stepsIn(folder_); }

  std::string told;

private:
  Recorder begunRecorder(std::uintmax_t maxBytes) const {
    Recorder recorder(folder_, maxBytes);
    EXPECT_EQ(recorder.begin(), std::nullopt);
    return recorder;
  }

  fs::path folder_;
  std::shared_ptr<FakeMachine> machine_ = std::make_shared<FakeMachine>();
  std::shared_ptr<KeptAnswers> kept_ = std::make_shared<KeptAnswers>(machine_);
  std::shared_ptr<HandDrivenQueue> queue_ = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<SimulatedEventSource> events_ = std::make_shared<SimulatedEventSource>();
  std::shared_ptr<PortScanner> scanner_ =
      PortScanner::create({.acquisition = {.machine = kept_, .queue = queue_}, .events = events_});
  RecordedScans scans_;
};

Answers machineWith(const std::string& device) {
  return {{Question::thunderbolt, R"({"SPThunderboltDataType": []})"},
          {Question::power, R"({"SPPowerDataType": []})"},
          {Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [{"_name": ")" +
                              device + R"("}]}]})"}};
}

class RecordedScansTest : public testing::Test {
protected:
  TemporaryFolder temporary;
  fs::path folder = temporary.path() / "recording";
};

TEST_F(RecordedScansTest, AddAStepForEachChange) {
  Recording recording(folder, /*isAnonymous=*/false);
  recording.becomes(machineWith("Stick"));
  recording.becomes(machineWith("Camera"));
  recording.becomes(machineWith("Camera"));
  const std::vector<RecordedStep> steps = recording.steps();
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(recording.told, "step " + steps[0].folder.filename().string() + "\nstep " +
                                steps[1].folder.filename().string() + "\n");
  EXPECT_EQ(answersIn(steps[0].folder).at(Question::usb), machineWith("Stick")[Question::usb]);
  EXPECT_EQ(answersIn(steps[1].folder).at(Question::usb), machineWith("Camera")[Question::usb]);
}

TEST_F(RecordedScansTest, LeaveOutAMachineThatGivesNoReport) {
  Recording recording(folder, /*isAnonymous=*/false);
  recording.becomes({{Question::usb, ""}, {Question::thunderbolt, ""}, {Question::power, ""}});
  EXPECT_EQ(recording.told, "a report is missing or cannot be read, so this change is left out\n");
  recording.becomes(machineWith("Stick"));
  EXPECT_EQ(recording.steps().size(), 1U);
}

TEST_F(RecordedScansTest, EndWhenThereIsNoRoomAndKeepWhatThereIs) {
  Recording recording(folder, /*isAnonymous=*/false, 60'000);
  recording.becomes(machineWith("Stick"));
  recording.becomes(machineWith("Camera"));
  recording.becomes(machineWith("Keyboard"));
  recording.told.clear();
  recording.becomes(machineWith("Mouse"));
  recording.becomes(machineWith("Disk"));
  EXPECT_EQ(recording.told, "cannot record: the recording would take more than 0 MB\n");
  EXPECT_EQ(recording.steps().size(), 3U);
}

/// The serial numbers of devices, by what they were before.
using StandInsOfSerials = std::map<std::string, std::string>;

void learnStandIns(const Inventory& original, const Inventory& recorded, StandInsOfSerials& known) {
  ASSERT_EQ(original.size(), recorded.size());
  for (std::size_t index = 0; index < original.size(); ++index) {
    const std::string& serial = original[index].serialNumber;
    const std::string& standIn = recorded[index].serialNumber;
    EXPECT_EQ(known.try_emplace(serial, standIn).first->second, standIn)
        << serial << " has two stand-ins";
  }
}

class AnonymousRecording : public RecordedScansTest {
protected:
  /// All samples one after another, and then the first one again, so that what identifies them
  /// comes, goes and comes back.
  AnonymousRecording() {
    for (const fs::path& sample : sampleFolders()) {
      machines.push_back(answersIn(sample));
    }
    machines.push_back(machines.front());
    Recording recording(folder, /*isAnonymous=*/true);
    for (const Answers& machine : machines) {
      recording.becomes(machine);
    }
    steps = recording.steps();
  }

  std::vector<Answers> machines;
  std::vector<RecordedStep> steps;
};

TEST_F(AnonymousRecording, HasNoReplacedTextLeftInAnyStep) {
  ASSERT_EQ(steps.size(), machines.size());
  std::set<std::string> secrets;
  for (const Answers& machine : machines) {
    secrets.merge(secretsIn(machine));
  }
  // A short serial number of one machine is part of the product number of another.
  std::erase_if(secrets, [](const std::string& secret) { return secret.size() < 6; });
  EXPECT_GT(secrets.size(), 50U);
  for (const RecordedStep& step : steps) {
    for (const auto& [question, answer] : answersIn(step.folder)) {
      for (const std::string& secret : secrets) {
        EXPECT_EQ(answer.find(secret), std::string::npos)
            << secret << " in " << step.folder << " " << nameOf(question);
      }
    }
  }
}

TEST_F(AnonymousRecording, HasTheSameTreesAndTheSameStandInsInAllSteps) {
  ASSERT_EQ(steps.size(), machines.size());
  StandInsOfSerials standIns;
  for (std::size_t index = 0; index < steps.size(); ++index) {
    SCOPED_TRACE(steps[index].folder);
    const Inventory original = inventoryOfAnswers(machines[index]);
    const Inventory recorded = inventoryOfAnswers(answersIn(steps[index].folder));
    EXPECT_EQ(factsOf(recorded), factsOf(original)) << "halves of hubs are found by identifiers";
    learnStandIns(original, recorded, standIns);
  }
  std::set<std::string> different;
  for (const auto& [serial, standIn] : standIns) {
    EXPECT_TRUE(different.insert(standIn).second) << serial << " has the stand-in of another one";
  }
  EXPECT_GT(standIns.size(), 20U);
}

} // namespace
} // namespace tamberline
