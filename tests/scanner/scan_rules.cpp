#include "scanner/scan_rules.h"

#include "registry/probe_results.h"
#include "registry/property_list.h"
#include "reports/container_hubs.h"
#include "reports/power_report.h"
#include "reports/thunderbolt_report.h"
#include "reports/usb_report.h"
#include "support/bus_text.h"
#include "support/tree_text.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <stdexcept>
#include <utility>

namespace tamberline {
namespace {

/// Whether a run with this fault still produces its report: the exit status and the length of the
/// output do not matter.
bool givesItsReport(ToolFault fault) {
  return fault == ToolFault::none || fault == ToolFault::failsWithItsReport ||
         fault == ToolFault::printsHugeReport || fault == ToolFault::diesAfterItsReport;
}

bool isRead(const ToolFaults& faults, Question question) {
  const auto found = faults.find(question);
  return found == faults.end() || givesItsReport(found->second);
}

void appendDevices(const SharedList<ThunderboltDevice>& devices, const std::string& indent,
                   std::string& text) {
  for (const ThunderboltDevice& device : devices) {
    text += indent + device.name + " " + device.uid + "\n";
    appendDevices(device.children, indent + "  ", text);
  }
}

std::string thunderboltText(const std::vector<ThunderboltBus>& buses) {
  std::string text;
  for (const ThunderboltBus& bus : buses) {
    text += std::to_string(bus.busNumber) + " " + bus.uid + "\n";
    appendDevices(bus.connectedDevices, "  ", text);
  }
  return text;
}

void appendIDs(const std::vector<TreeNode>& nodes, std::string& text) {
  for (const TreeNode& node : nodes) {
    text += node.id + "\n";
    appendIDs(node.children, text);
  }
}

std::string identifiedTree(const std::vector<TreeNode>& nodes) {
  std::string text = treeText(nodes);
  appendIDs(nodes, text);
  return text;
}

template <typename Result>
Result readDump(const Answers& answers, Question question,
                Result (*read)(const PropertyList& dump)) {
  const std::optional<PropertyList> dump = PropertyList::decode(answers.at(question));
  if (!dump) {
    throw std::runtime_error("no property list: " + nameOf(question));
  }
  return read(*dump);
}

} // namespace

ShownState shownBy(const PortScanner& scanner) {
  return {.thunderboltBuses = thunderboltText(scanner.thunderboltBuses.get()),
          .usbBuses = busText(scanner.usbBuses.get()),
          .portTree = identifiedTree(scanner.portTree.get()),
          .charger = scanner.charger.get(),
          .battery = scanner.battery.get(),
          .fedPortStates = scanner.fedPortStates.get(),
          .bestAdapterIndex = scanner.bestAdapterIndex.get(),
          .hpmPorts = scanner.hpmPorts.get(),
          .portPowerOut = scanner.portPowerOut.get(),
          .portCurrentLimitMa = scanner.portCurrentLimitMa.get(),
          .errorMessage = scanner.errorMessage.get(),
          .lastScanned = scanner.lastScanned.get(),
          .isScanning = scanner.isScanning.get()};
}

std::string difference(const ShownState& expected, const ShownState& actual) {
  std::string text;
  const auto compare = [&](const auto& field, const std::string& name) {
    if (!(expected.*field == actual.*field)) {
      text += name + " ";
    }
  };
  compare(&ShownState::thunderboltBuses, "thunderboltBuses");
  compare(&ShownState::usbBuses, "usbBuses");
  compare(&ShownState::portTree, "portTree");
  compare(&ShownState::charger, "charger");
  compare(&ShownState::battery, "battery");
  compare(&ShownState::fedPortStates, "fedPortStates");
  compare(&ShownState::bestAdapterIndex, "bestAdapterIndex");
  compare(&ShownState::hpmPorts, "hpmPorts");
  compare(&ShownState::portPowerOut, "portPowerOut");
  compare(&ShownState::portCurrentLimitMa, "portCurrentLimitMa");
  compare(&ShownState::errorMessage, "errorMessage");
  compare(&ShownState::lastScanned, "lastScanned");
  compare(&ShownState::isScanning, "isScanning");
  return text;
}

ReadMachine::ReadMachine(const Answers& answers)
    : thunderbolt(nlohmann::json::parse(answers.at(Question::thunderbolt))),
      usb(nlohmann::json::parse(answers.at(Question::usb))),
      power(nlohmann::json::parse(answers.at(Question::power))),
      containerIDs(readDump(answers, Question::usbHostDevices, containerIDsIn)),
      fedDetails(readDump(answers, Question::powerSource, fedDetailsIn)),
      hpmPorts(readDump(answers, Question::portControllers, portControllersIn)),
      portPowerOut(readDump(answers, Question::portPower, portPowerOutIn)),
      portCurrentLimitMa(readDump(answers, Question::deviceTree, portCurrentLimitsIn)) {}

void ScanRules::scan(const ReadMachine& machine, const ToolFaults& faults,
                     std::chrono::system_clock::time_point now) {
  static const std::pair<Question, std::string> sections[] = {
      {Question::thunderbolt, "SPThunderboltDataType"},
      {Question::usb, "SPUSBDataType"},
      {Question::power, "SPPowerDataType"}};
  for (const auto& [question, section] : sections) {
    if (!isRead(faults, question)) {
      if (state_.portTree.empty()) {
        state_.errorMessage = "Could not parse " + section;
      }
      return;
    }
  }
  takeReports(machine, faults);
  takeProbes(machine, faults);
  buildTree();
  state_.errorMessage = std::nullopt;
  state_.lastScanned = now;
}

void ScanRules::takeReports(const ReadMachine& machine, const ToolFaults& faults) {
  const bool areBoxesKnown = isRead(faults, Question::usbHostDevices);
  thunderboltBuses_ = parseThunderbolt(machine.thunderbolt);
  usbBuses_ = mergeContainerHubs(
      parseUSB(machine.usb, areBoxesKnown ? machine.containerIDs : ContainerIDs()));
  state_.thunderboltBuses = thunderboltText(thunderboltBuses_);
  state_.usbBuses = busText(usbBuses_);
  const PowerReading reading = parsePower(machine.power);
  state_.charger = reading.charger ? reading.charger : state_.charger;
  state_.battery = reading.battery ? reading.battery : state_.battery;
}

void ScanRules::takeProbes(const ReadMachine& machine, const ToolFaults& faults) {
  const FedDetails fed = isRead(faults, Question::powerSource) ? machine.fedDetails : FedDetails();
  state_.fedPortStates = fed.ports;
  state_.bestAdapterIndex = fed.bestAdapterIndex;
  state_.hpmPorts = {};
  if (isRead(faults, Question::portControllers)) {
    state_.hpmPorts = machine.hpmPorts;
  }
  state_.portPowerOut = {};
  if (isRead(faults, Question::portPower)) {
    state_.portPowerOut = machine.portPowerOut;
  }
  if (state_.portCurrentLimitMa.empty() && isRead(faults, Question::deviceTree)) {
    state_.portCurrentLimitMa = machine.portCurrentLimitMa;
  }
}

void ScanRules::buildTree() {
  state_.portTree = identifiedTree(
      assignStableIDs(buildPortTree({.thunderboltBuses = thunderboltBuses_,
                                     .usbBuses = usbBuses_,
                                     .charger = state_.charger,
                                     .hpmPorts = state_.hpmPorts,
                                     .portCurrentLimitMa = state_.portCurrentLimitMa}),
                      ""));
}

} // namespace tamberline
