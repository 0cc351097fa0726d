#include "inspect/document.h"

#include "inspect/document_parts.h"
#include "tree/node_identifiers.h"
#include "views/panel_inputs.h"
#include "views/scan_answers.h"

#include <map>
#include <string>
#include <utility>

namespace tamberline {
namespace {

template <typename Record>
Document describeAll(const std::vector<Record>& records) {
  return listOf(records, [](const Record& record) { return describe(record); });
}

template <typename Record>
Document describeOrNull(const std::optional<Record>& record) {
  return record ? describe(*record) : Document(nullptr);
}

template <typename Value, typename Describe>
Document tableOf(const std::map<std::int64_t, Value>& table, Describe describeValue) {
  Document document = Document::object();
  for (const auto& [key, value] : table) {
    document[std::to_string(key)] = describeValue(value);
  }
  return document;
}

} // namespace

Document inspectionDocument(const PortScanner& scanner) {
  const std::vector<TreeNode>& tree = scanner.portTree.get();
  const std::vector<Answer> answers = answersOf(scanner);
  Document panel = describe(describePanel(panelInputs(scanner)));
  addAnswersToRows(answers, panel);
  return {
      {"errorMessage", orNull(scanner.errorMessage.get())},
      {"thunderboltBuses", describeAll(scanner.thunderboltBuses.get())},
      {"usbBuses", describeAll(scanner.usbBuses.get())},
      {"charger", describeOrNull(scanner.charger.get())},
      {"battery", describeOrNull(scanner.battery.get())},
      {"hpmPorts", describeAll(scanner.hpmPorts.get())},
      {"fedPortStates", describeAll(scanner.fedPortStates.get())},
      {"bestAdapterIndex", scanner.bestAdapterIndex.get()},
      {"portPowerOut", tableOf(scanner.portPowerOut.get(),
                               [](const PortPowerOut& power) { return describe(power); })},
      {"portCurrentLimitMa",
       tableOf(scanner.portCurrentLimitMa.get(), [](std::int64_t limitMa) { return limitMa; })},
      {"ports", describePorts(scanner.thunderboltBuses.get(), scanner.hpmPorts.get(),
                              scanner.charging.get())},
      {"charging", describeOrNull(scanner.charging.get())},
      {"deviceAbilities", describeAbilities(tree)},
      {"linkLimits", describeLinkLimits(tree)},
      {"answers", describeAll(answers)},
      {"portTree", describeAll(tree)},
      {"allContainerIDs", allContainerIDs(tree)},
      {"searchEntries", describeAll(flattenSearchable(tree))},
      {"panel", std::move(panel)},
  };
}

} // namespace tamberline
