#include "platform/linux/machines/mocked_machine.h"
#include "platform/posix/child_process_runner.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::ordered_json;

std::string inspect(std::vector<std::string> arguments) {
  arguments.insert(arguments.end(), {"--language", "en"});
  return ChildProcessRunner().run(INSPECT_PROGRAM, arguments).standardOutput;
}

/// The document without the parts derived from its records, because the text shows those.
std::string records() {
  ordered_json document = ordered_json::parse(inspect({"--json"}));
  for (const char* key : {"portTree", "allContainerIDs", "searchEntries", "panel"}) {
    document.erase(key);
  }
  return document.dump(1) + "\n";
}

/// Compares with the file of that name. With RECORD set, the file is written instead.
void expectAsRecorded(const std::string& fileName, const std::string& content) {
  const std::filesystem::path file = MockedMachine::folder() / fileName;
  if (std::getenv("RECORD") != nullptr) {
    std::ofstream(file, std::ios::binary) << content;
  }
  std::ostringstream recorded;
  recorded << std::ifstream(file, std::ios::binary).rdbuf();
  EXPECT_EQ(content, recorded.str()) << "RECORD=1 writes " << file;
}

class LinuxMachines : public testing::TestWithParam<const char*> {};

TEST_P(LinuxMachines, AreShownAsText) {
  const MockedMachine machine(GetParam());
  expectAsRecorded(std::string(GetParam()) + ".txt", inspect({}));
}

TEST_P(LinuxMachines, AreShownAsADocument) {
  const MockedMachine machine(GetParam());
  expectAsRecorded(std::string(GetParam()) + ".json", records());
}

INSTANTIATE_TEST_SUITE_P(Recorded, LinuxMachines,
                         testing::Values("docked-laptop", "silent-laptop", "two-controllers",
                                         "hubs-in-hubs", "encrypted-volumes", "charging-phone"),
                         [](const auto& machine) {
                           std::string name = machine.param;
                           std::erase(name, '-');
                           return name;
                         });

TEST(LinuxMachine, WithoutDevicesHasNoPorts) {
  const MockedMachine machine("");
  EXPECT_EQ(inspect({}), "No ports detected\n");
}

} // namespace
} // namespace tamberline
