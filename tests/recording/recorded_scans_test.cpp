#include "anonymity/saved_machines.h"
#include "recording/recorded_scans.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using nlohmann::json;

/// Records a machine whose answers a test changes.
class Recording {
public:
  Recording(fs::path folder, bool isAnonymous, std::uintmax_t maxBytes = usualMaxRecordingBytes)
      : folder_(std::move(folder)),
        scans_({.scanner = scanner_,
                .machine = kept_,
                .queue = queue_,
                .recorder = begunRecorder(maxBytes),
                .anonymousSteps =
                    isAnonymous ? std::optional<AnonymousSteps>(std::in_place) : std::nullopt},
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
  EXPECT_EQ(recording.told, "SPThunderboltDataType.json is missing, so this change is left out\n");
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
  AnonymousRecording() {
    for (const fs::path& sample : sampleFolders()) {
      samples.push_back(answersIn(sample));
      secrets.merge(secretsIn(samples.back()));
    }
    // A short serial number of one machine is part of the product number of another.
    std::erase_if(secrets, [](const std::string& secret) { return secret.size() < 6; });
    EXPECT_GT(secrets.size(), 50U);
  }

  void record(const std::vector<Answers>& machines) {
    fs::remove_all(folder);
    Recording recording(folder, /*isAnonymous=*/true);
    for (const Answers& machine : machines) {
      recording.becomes(machine);
    }
    steps = recording.steps();
    ASSERT_EQ(steps.size(), machines.size()) << recording.told;
  }

  void expectNoSecretInAnyStep() const {
    for (const RecordedStep& step : steps) {
      for (const auto& [question, answer] : answersIn(step.folder)) {
        for (const std::string& secret : secrets) {
          EXPECT_EQ(answer.find(secret), std::string::npos)
              << secret << " in " << step.folder << " " << nameOf(question);
        }
      }
    }
  }

  std::vector<Answers> samples;
  std::set<std::string> secrets;
  std::vector<RecordedStep> steps;
};

std::string deviceIn(const RecordedStep& step) {
  const json report = json::parse(answersIn(step.folder).at(Question::usb));
  return report["SPUSBDataType"][0]["_items"][0]["_name"];
}

TEST_F(AnonymousRecording, ReplacesWhatOnlyALaterStepShowsToIdentify) {
  const std::string serial = R"(Stick", "serial_num": "QP2T-40B81C)";
  record({machineWith("QP2T-40B81C of Ida"), machineWith("Camera"), machineWith(serial),
          machineWith("Not QP2T-40B81C")});
  const json stick = json::parse(answersIn(steps[2].folder).at(Question::usb));
  const std::string standIn = stick["SPUSBDataType"][0]["_items"][0]["serial_num"];
  EXPECT_NE(standIn, "QP2T-40B81C");
  EXPECT_EQ(deviceIn(steps[0]), standIn + " of Ida");
  EXPECT_EQ(deviceIn(steps[1]), "Camera");
  EXPECT_EQ(deviceIn(steps[2]), "Stick");
  EXPECT_EQ(deviceIn(steps[3]), "Not " + standIn);
}

TEST_F(AnonymousRecording, GivesUpAStandInThatALaterStepShowsToIdentify) {
  const auto volume = [](const std::string& name) {
    return machineWith(R"(Stick", "Media": [{"volumes": [{"_name": ")" + name +
                       R"(", "mount_point": "/m"}]}], "a": ")");
  };
  const auto volumeIn = [](const RecordedStep& step) -> std::string {
    const json report = json::parse(answersIn(step.folder).at(Question::usb));
    return report["SPUSBDataType"][0]["_items"][0]["Media"][0]["volumes"][0]["_name"];
  };
  record({volume("Fieldwork"), volume("Volume 1"), volume("Fieldwork")});
  EXPECT_NE(volumeIn(steps[0]), "Volume 1");
  EXPECT_NE(volumeIn(steps[1]), "Volume 1");
  EXPECT_NE(volumeIn(steps[1]), volumeIn(steps[0]));
  EXPECT_EQ(volumeIn(steps[2]), volumeIn(steps[0]));
}

/// Between the samples are machines on which what identifies the samples is part of a device's
/// name, where nothing shows that it identifies something.
std::vector<Answers> shuffledMachines(const std::vector<Answers>& samples,
                                      const std::set<std::string>& secrets, std::mt19937& random) {
  std::vector<std::string> names(secrets.begin(), secrets.end());
  std::shuffle(names.begin(), names.end(), random);
  std::vector<Answers> machines = samples;
  constexpr std::size_t secretsOfMachine = 5;
  std::string name = "Device";
  for (std::size_t index = 0; index < names.size(); ++index) {
    const std::string quoted = json(names[index]).dump();
    name += " " + quoted.substr(1, quoted.size() - 2);
    if (index % secretsOfMachine == secretsOfMachine - 1 || index + 1 == names.size()) {
      machines.push_back(machineWith(std::exchange(name, "Device")));
    }
  }
  std::shuffle(machines.begin(), machines.end(), random);
  return machines;
}

TEST_F(AnonymousRecording, HasNoReplacedTextLeftInAnyStepInWhateverOrder) {
  std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same orders in every run
  for (int round = 0; round < 2; ++round) {
    record(shuffledMachines(samples, secrets, random));
    ASSERT_GT(steps.size(), 2 * samples.size());
    expectNoSecretInAnyStep();
  }
}

/// The samples one after another, and then the first one again, so that what identifies them comes,
/// goes and comes back.
TEST_F(AnonymousRecording, HasTheSameTreesAndTheSameStandInsInAllSteps) {
  std::vector<Answers> machines = samples;
  machines.push_back(samples.front());
  record(machines);
  ASSERT_EQ(steps.size(), machines.size());
  expectNoSecretInAnyStep();
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
