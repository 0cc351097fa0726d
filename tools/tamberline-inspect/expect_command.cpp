#include "commands.h"
#include "expectation/expectation_file.h"
#include "expectation/expectation_output.h"
#include "inspect/json_text.h"
#include "platform/posix/whole_files.h"
#include "scan_output.h"
#include "state_of_machine.h"
#include "terminal.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

namespace tamberline {
namespace {

using Expectations = std::vector<Expectation>;

int writeExpectations(const std::filesystem::path& file, const InspectOptions& options) {
  const std::optional<Inventory> inventory = inventoryOfMachine(options.reportsFolder);
  if (!inventory) {
    return exitTrouble;
  }
  if (const WriteFailure failure = createFile(file, expectationsFor(*inventory))) {
    reportProblem("cannot write '" + file.string() + "': " + *failure);
    return exitTrouble;
  }
  return EXIT_SUCCESS;
}

/// Absent if the file is wrong, after reporting that.
std::optional<Expectations> expectationsIn(const std::filesystem::path& file) {
  const std::optional<std::string> content = contentOf(file, maxExpectationFileBytes);
  if (!content) {
    return std::nullopt;
  }
  auto result = readExpectations(*content);
  if (const auto* const mistake = std::get_if<FileMistake>(&result)) {
    reportProblem(file.string() + ":" + std::to_string(mistake->line) + ": " + mistake->reason);
    return std::nullopt;
  }
  return std::get<Expectations>(std::move(result));
}

std::string resultText(const std::vector<CheckedExpectation>& checked, const Inventory& inventory,
                       bool printsJson, bool printsTap) {
  if (printsJson) {
    return jsonText(expectationDocument(checked, inventory), 2) + "\n";
  }
  const TextStyle style = styleOfStandardOutput();
  return printsTap ? expectationTap(checked, inventory)
                   : expectationText(checked, inventory, style.useColors, style.columns);
}

} // namespace

int run(const ExpectCommand& command, const InspectOptions& options) {
  if (command.writes) {
    return writeExpectations(command.file, options);
  }
  const std::optional<Expectations> expectations = expectationsIn(command.file);
  const std::optional<Inventory> inventory =
      expectations ? inventoryOfMachine(options.reportsFolder) : std::nullopt;
  if (!inventory) {
    return exitTrouble;
  }
  const std::vector<CheckedExpectation> checked = checkedAgainst(*inventory, *expectations);
  if (!print(resultText(checked, *inventory, options.printsJson, command.printsTap))) {
    return exitTrouble;
  }
  return areAllMet(checked) ? EXIT_SUCCESS : exitFailure;
}

} // namespace tamberline
