// The main thread's share of one scan: all steps from the output of the tools to the tree with its
// identifiers.

#include "answers/find_answers.h"
#include "large_machine.h"
#include "platform/saved/saved_reports.h"
#include "registry/probe_results.h"
#include "reports/container_hubs.h"
#include "reports/power_report.h"
#include "reports/report_decoding.h"
#include "reports/thunderbolt_report.h"
#include "reports/usb_report.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <map>
#include <string>

namespace tamberline {
namespace {

using Answers = std::map<Question, std::string>;

nlohmann::json reportIn(const Answers& answers, Question question) {
  const auto found = answers.find(question);
  return found == answers.end() ? nlohmann::json::object()
                                : decodeReport(found->second).value_or(nlohmann::json::object());
}

template <typename Result>
Result dumpIn(const Answers& answers, Question question, Result (*read)(const PropertyList& dump)) {
  const auto found = answers.find(question);
  const auto dump =
      found == answers.end() ? std::nullopt : PropertyList::decode(std::string(found->second));
  return dump ? read(*dump) : Result{};
}

USBHostDevices usbHostDevicesIn(const PropertyList& dump) {
  return {.containerIDs = containerIDsIn(dump), .abilities = usbAbilitiesIn(dump)};
}

std::pair<std::map<std::int64_t, PortPowerOut>, std::optional<ChargingState>>
batteryControllerIn(const PropertyList& dump) {
  return {portPowerOutIn(dump), chargingIn(dump)};
}

std::vector<TreeNode> workOfOneScan(const Answers& answers) {
  PortTreeInputs inputs;
  inputs.thunderboltBuses = parseThunderbolt(reportIn(answers, Question::thunderbolt));
  const auto devices = dumpIn(answers, Question::usbHostDevices, usbHostDevicesIn);
  inputs.usbBuses = mergeContainerHubs(
      parseUSB(reportIn(answers, Question::usb), devices.containerIDs, devices.abilities));
  inputs.charger = parsePower(reportIn(answers, Question::power)).charger;
  benchmark::DoNotOptimize(dumpIn(answers, Question::powerSource, fedDetailsIn));
  inputs.hpmPorts = dumpIn(answers, Question::portControllers, portControllersIn);
  benchmark::DoNotOptimize(dumpIn(answers, Question::portPower, batteryControllerIn));
  inputs.portCurrentLimitMa = dumpIn(answers, Question::deviceTree, portCurrentLimitsIn);
  return assignStableIDs(buildPortTree(inputs), "");
}

Answers readSample(const std::string& machine) {
  SavedReports reports(std::string(SAMPLES_FOLDER) + "/" + machine);
  Answers answers;
  for (const Question question :
       {Question::thunderbolt, Question::usb, Question::power, Question::portControllers,
        Question::portPower, Question::deviceTree, Question::usbHostDevices,
        Question::powerSource}) {
    answers[question] = reports.answer(question);
  }
  return answers;
}

void deskSample(benchmark::State& state) {
  const Answers answers = readSample("desk");
  for (auto iteration : state) {
    benchmark::DoNotOptimize(workOfOneScan(answers));
  }
}
BENCHMARK(deskSample)->Unit(benchmark::kMillisecond);

void usbDevices(benchmark::State& state) {
  const Answers answers = makeLargeMachine(static_cast<std::size_t>(state.range(0)));
  for (auto iteration : state) {
    benchmark::DoNotOptimize(workOfOneScan(answers));
  }
}
BENCHMARK(usbDevices)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

void findAnswersOnUSBDevices(benchmark::State& state) {
  const std::vector<TreeNode> tree =
      workOfOneScan(makeLargeMachine(static_cast<std::size_t>(state.range(0))));
  for (auto iteration : state) {
    benchmark::DoNotOptimize(findAnswers({.portTree = tree}));
  }
}
BENCHMARK(findAnswersOnUSBDevices)->Arg(5'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

void deviceTree(benchmark::State& state) {
  const Answers answers = {
      {Question::deviceTree, makeDeviceTree(static_cast<std::size_t>(state.range(0)))}};
  for (auto iteration : state) {
    benchmark::DoNotOptimize(workOfOneScan(answers));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(deviceTree)->Arg(6'000'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tamberline
