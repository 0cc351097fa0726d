// The folders and recordings in the table of machines, read by the whole program. Those that are
// not part of the project are in the folders that TAMBERLINE_REPORTS and TAMBERLINE_LINUX_BEDS
// name.

#include "answers/machine_table.h"
#include "base/text.h"
#include "platform/posix/child_process_runner.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

void addNames(const json& nodes, NodeNames& names) {
  for (const json& node : nodes) {
    const std::string kind = node["kind"];
    std::string name = "charging only";
    if (node.contains("device")) {
      name = node["device"]["name"];
    } else if (kind == "charger") {
      name = node["charger"]["name"];
    } else if (kind == "tbPort") {
      name = "port " + std::to_string(node["bus"]["busNumber"].get<int>());
    } else if (kind == "usbBus") {
      name = "bus";
    }
    names.emplace(node["id"], trimmed(name));
    addNames(node["children"], names);
  }
}

std::vector<std::string> linesOf(const json& document) {
  NodeNames names;
  addNames(document["portTree"], names);
  std::vector<std::string> lines;
  for (const json& answer : document["answers"]) {
    const json& limit = answer["limitingNodeId"];
    AnswerLine line{.weight = answer["weight"],
                    .kind = answer["kind"],
                    .node = names.at(answer["nodeId"]),
                    .part = answer["limitingPart"],
                    .limit = limit.is_null() ? "" : names.at(limit)};
    for (const json& other : answer["otherNodeIds"]) {
      line.others.push_back(names.at(other));
    }
    lines.push_back(line.text());
  }
  return lines.empty() ? std::vector<std::string>{"none"} : lines;
}

std::string outputOf(const std::string& script, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {"-c", script, "sh"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return ChildProcessRunner().run("/bin/sh", words).standardOutput;
}

json documentOfFolder(const fs::path& folder) {
  return json::parse(outputOf(R"(exec "$1" --reports "$2" --json --language en 2>/dev/null)",
                              {INSPECT_PROGRAM, folder.string()}));
}

json documentOfRecording(const fs::path& recording) {
  const fs::path mounts = fs::path(recording).replace_extension("mounts");
  return json::parse(outputOf(
      R"(exec umockdev-run -d "$2" -- sh -c '
           if [ -f "$1" ]; then
             mkdir -p "$UMOCKDEV_DIR/proc/self"
             cp "$1" "$UMOCKDEV_DIR/proc/self/mountinfo"
           fi
           exec "$2" --json --language en 2>/dev/null' sh "$3" "$1")",
      {INSPECT_PROGRAM, recording.string(), mounts.string()}));
}

/// A kind of machines in the table, by the start of their titles.
struct Source {
  std::string prefix;
  fs::path folder;
  bool isRecorded = false;
};

std::vector<MachineCase> casesFrom(const Source& source) {
  std::vector<MachineCase> cases;
  for (MachineCase& machineCase : readMachineTable(MACHINE_TABLE)) {
    if (machineCase.title.starts_with(source.prefix)) {
      machineCase.title.erase(0, source.prefix.size());
      cases.push_back(std::move(machineCase));
    }
  }
  return cases;
}

void expectAnswers(const Source& source) {
  const std::vector<MachineCase> cases = casesFrom(source);
  EXPECT_FALSE(cases.empty());
  for (const MachineCase& machineCase : cases) {
    SCOPED_TRACE(source.prefix + machineCase.title);
    const json document =
        source.isRecorded ? documentOfRecording(source.folder / (machineCase.title + ".umockdev"))
                          : documentOfFolder(source.folder / machineCase.title);
    EXPECT_EQ(linesOf(document), machineCase.expected);
  }
}

/// No machine of the folder is missing in the table.
void expectAllListed(const Source& source) {
  std::set<std::string> listed;
  for (const MachineCase& machineCase : casesFrom(source)) {
    listed.insert(machineCase.title);
  }
  std::set<std::string> present;
  for (const fs::directory_entry& entry : fs::directory_iterator(source.folder)) {
    const bool isMachine =
        source.isRecorded ? entry.path().extension() == ".umockdev" : entry.is_directory();
    if (isMachine) {
      present.insert(source.isRecorded ? entry.path().stem() : entry.path().filename());
    }
  }
  EXPECT_EQ(listed, present);
}

/// Empty if the variable is not set.
fs::path folderNamedBy(const char* variable) {
  const char* folder = std::getenv(variable);
  return folder == nullptr ? fs::path() : fs::path(folder);
}

TEST(AnswersOfMachines, Samples) {
  const Source samples{"samples/", SAMPLES_FOLDER};
  expectAllListed(samples);
  expectAnswers(samples);
}

TEST(AnswersOfMachines, RecordedLinuxMachines) {
#ifdef TAMBERLINE_SANITIZED
  GTEST_SKIP() << "umockdev and the sanitizers both want to be loaded first";
#endif
  const Source machines{"machines/", LINUX_MACHINES_FOLDER, /*isRecorded=*/true};
  expectAllListed(machines);
  expectAnswers(machines);
}

TEST(AnswersOfMachines, RealReports) {
  const Source reports{"reports/", folderNamedBy("TAMBERLINE_REPORTS")};
  if (reports.folder.empty()) {
    GTEST_SKIP() << "TAMBERLINE_REPORTS names no folder with reports of real machines";
  }
  expectAllListed(reports);
  expectAnswers(reports);
}

TEST(AnswersOfMachines, RealLinuxMachines) {
  const Source beds{"beds/", folderNamedBy("TAMBERLINE_LINUX_BEDS"), /*isRecorded=*/true};
  if (beds.folder.empty()) {
    GTEST_SKIP() << "TAMBERLINE_LINUX_BEDS names no folder with recordings of real machines";
  }
  expectAllListed(beds);
  expectAnswers(beds);
}

} // namespace
} // namespace tamberline
