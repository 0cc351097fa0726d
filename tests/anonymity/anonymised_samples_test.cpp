#include "anonymity/anonymiser.h"
#include "inspect/document.h"
#include "inventory/inventory.h"
#include "platform/saved/saved_files.h"
#include "platform/saved/saved_reports.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

std::vector<std::filesystem::path> sampleFolders() {
  std::vector<std::filesystem::path> folders;
  for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_FOLDER)) {
    if (entry.is_directory()) {
      folders.push_back(entry.path());
    }
  }
  return folders;
}

Answers answersIn(const std::filesystem::path& folder) {
  const std::shared_ptr<MachineSource> machine = savedMachine(folder);
  Answers answers;
  for (const Question question : questionsOfAScan) {
    if (std::string answer = machine->answer(question); !answer.empty()) {
      answers[question] = answer;
    }
  }
  return answers;
}

Inventory inventoryOfAnswers(const Answers& answers) {
  const auto machine = std::make_shared<FakeMachine>();
  for (const auto& [question, answer] : answers) {
    machine->answer(question, answer);
  }
  const auto queue = std::make_shared<HandDrivenQueue>();
  const auto scanner = PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                                            .events = std::make_shared<SimulatedEventSource>()});
  scanner->scan();
  queue->settle();
  return inventoryOf(inspectionDocument(*scanner));
}

void collectMatches(const std::string& text, const std::string& pattern,
                    std::set<std::string>& matches) {
  const std::regex expression(pattern);
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
       ++match) {
    matches.insert((*match)[1]);
  }
}

void collectVolumes(const json& value, std::set<std::string>& names) {
  if (value.is_object() && value.contains("volumes")) {
    for (const json& volume : value["volumes"]) {
      names.insert(volume.value("_name", ""));
      names.insert(volume.value("mount_point", ""));
    }
  }
  if (value.is_structured()) {
    for (const json& child : value) {
      collectVolumes(child, names);
    }
  }
}

/// Everything that identifies, found in another way than the program does.
std::set<std::string> secretsIn(const Answers& answers) {
  std::set<std::string> secrets;
  for (const auto& [question, answer] : answers) {
    collectMatches(answer, R"re("[a-z_]*serial_num[a-z_]*" ?: ?"([^"]*)")re", secrets);
    collectMatches(answer, R"re("switch_uid_key" ?: ?"([^"]*)")re", secrets);
    collectMatches(answer, R"re(<key>[^<]*Serial[^<]*</key>\s*<string>([^<]*)<)re", secrets);
    collectMatches(answer, R"re(([0-9A-Fa-f]{8}-(?:[0-9A-Fa-f]{4}-){3}[0-9A-Fa-f]{12}))re",
                   secrets);
    if (answer.front() == '{') {
      collectVolumes(json::parse(answer), secrets);
    }
  }
  std::erase_if(secrets, [](const std::string& text) { return text.size() < 4; });
  return secrets;
}

TEST(AnonymisedSamples, HaveNoReplacedTextLeft) {
  std::size_t count = 0;
  for (const auto& folder : sampleFolders()) {
    SCOPED_TRACE(folder.filename().string());
    const Answers answers = answersIn(folder);
    const auto anonymised = Anonymiser().anonymised(answers);
    ASSERT_TRUE(anonymised);
    for (const std::string& secret : secretsIn(answers)) {
      ++count;
      for (const auto& [question, answer] : *anonymised) {
        EXPECT_EQ(answer.find(secret), std::string::npos)
            << secret << " in " << savedFileName(question);
      }
    }
  }
  EXPECT_GT(count, 50U);
}

/// Everything but names of volumes and identifiers, one line for each item.
std::string factsOf(const Inventory& inventory) {
  std::string text;
  for (const InventoryItem& item : inventory) {
    const auto number = [](const auto& value) { return value ? std::to_string(*value) : "-"; };
    text += std::string(nameOf(item.kind)) + " " + item.name + " " + item.vendorID + " " +
            item.productID + " " + number(item.parent) + " " + number(item.portNumber) + " " +
            number(item.speedGbps) + " " + number(item.maxGbps) + " " + number(item.ratedMa) + " " +
            number(item.measuredWatts) + " " + number(item.agreedWatts) + " " +
            number(item.ratedWatts) + " " + number(item.deliveredWatts) + " " +
            (item.serialNumber.empty() ? "-" : "serial") + " " +
            (item.containerID.empty() ? "-" : "container") + " " +
            std::to_string(item.volumes.size()) + "\n";
  }
  return text;
}

TEST(AnonymisedSamples, HaveTheSameTree) {
  for (const auto& folder : sampleFolders()) {
    SCOPED_TRACE(folder.filename().string());
    const Answers answers = answersIn(folder);
    const auto anonymised = Anonymiser().anonymised(answers);
    ASSERT_TRUE(anonymised);
    const std::string facts = factsOf(inventoryOfAnswers(answers));
    EXPECT_NE(facts, "");
    EXPECT_EQ(factsOf(inventoryOfAnswers(*anonymised)), facts);
  }
}

} // namespace
} // namespace tamberline
