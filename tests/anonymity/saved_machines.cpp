#include "anonymity/saved_machines.h"

#include "inspect/document.h"
#include "platform/saved/saved_reports.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <regex>

namespace tamberline {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

void addFoldersIn(const fs::path& folder, std::vector<fs::path>& folders) {
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.is_directory()) {
      folders.push_back(entry.path());
    }
  }
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

} // namespace

std::vector<fs::path> sampleFolders() {
  std::vector<fs::path> folders;
  addFoldersIn(SAMPLES_FOLDER, folders);
  std::sort(folders.begin(), folders.end());
  return folders;
}

std::vector<fs::path> savedMachineFolders() {
  std::vector<fs::path> folders = sampleFolders();
  if (const char* const reports = std::getenv("TAMBERLINE_REPORTS")) {
    addFoldersIn(reports, folders);
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

std::set<std::string> secretsIn(const Answers& answers) {
  std::set<std::string> secrets;
  for (const auto& [question, answer] : answers) {
    collectMatches(answer, R"re("[a-z_]*serial_num[a-z_]*" ?: ?"([^"]*)")re", secrets);
    collectMatches(answer, R"re("switch_uid_key" ?: ?"([^"]*)")re", secrets);
    collectMatches(answer, R"re(<key>[^<]*Serial[^<]*</key>\s*<string>([^<]*)<)re", secrets);
    // As a key, it is the same on every machine: it names a kind of plug-in.
    const std::string values = std::regex_replace(answer, std::regex("<key>[^<]*</key>"), "");
    collectMatches(values, R"re(([0-9A-Fa-f]{8}-(?:[0-9A-Fa-f]{4}-){3}[0-9A-Fa-f]{12}))re",
                   secrets);
    if (answer.front() == '{') {
      collectVolumes(json::parse(answer), secrets);
    }
  }
  std::erase_if(secrets, [](const std::string& text) { return text.size() < 4; });
  return secrets;
}

} // namespace tamberline
