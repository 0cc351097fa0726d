#include "commands.h"
#include "comparison/comparison_output.h"
#include "inspect/json_text.h"
#include "inventory/inventory.h"
#include "scan_output.h"
#include "state_of_machine.h"
#include "terminal.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

namespace tamberline {
namespace {

std::optional<Inventory> secondState(const CompareCommand& command, const InspectOptions& options) {
  return command.states.size() > 1 ? inventoryIn(command.states[1])
                                   : inventoryOfMachine(options.reportsFolder);
}

} // namespace

int run(const CompareCommand& command, const InspectOptions& options) {
  const std::optional<Inventory> before = inventoryIn(command.states.front());
  const std::optional<Inventory> after = before ? secondState(command, options) : std::nullopt;
  if (!after) {
    return exitTrouble;
  }
  const std::vector<Change> changes = comparisonOf(*before, *after);
  const TextStyle style = styleOfStandardOutput();
  const std::string text = options.printsJson
                               ? jsonText(comparisonDocument(changes), 2) + "\n"
                               : comparisonText(changes, style.useColors, style.columns);
  if (!print(text)) {
    return exitTrouble;
  }
  return changes.empty() ? EXIT_SUCCESS : exitFailure;
}

} // namespace tamberline
