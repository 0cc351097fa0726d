// The main thread's share of one scan: everything between the bytes that the tools printed and the
// tree with its identifiers.

#include "acquisition/tool_commands.h"
#include "large_machine.h"
#include "platform/saved/saved_reports_runner.h"
#include "registry/battery_controller_ports.h"
#include "registry/container_id_entries.h"
#include "registry/port_controllers.h"
#include "registry/port_power.h"
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

using Files = std::map<std::string, std::string>;

nlohmann::json reportIn(const Files& files, const std::string& fileName) {
  const auto found = files.find(fileName);
  return found == files.end() ? nlohmann::json::object()
                              : decodeReport(found->second).value_or(nlohmann::json::object());
}

template <typename Result>
Result dumpIn(const Files& files, const std::string& fileName,
              Result (*read)(const PropertyList& dump)) {
  const auto found = files.find(fileName);
  const auto dump =
      found == files.end() ? std::nullopt : PropertyList::decode(std::string(found->second));
  return dump ? read(*dump) : Result{};
}

std::vector<TreeNode> workOfOneScan(const Files& files) {
  PortTreeInputs inputs;
  inputs.thunderboltBuses = parseThunderbolt(reportIn(files, "SPThunderboltDataType.json"));
  inputs.usbBuses =
      mergeContainerHubs(parseUSB(reportIn(files, "SPUSBDataType.json"),
                                  dumpIn(files, "IOUSBHostDevice.plist", containerIDsIn)));
  inputs.charger = parsePower(reportIn(files, "SPPowerDataType.json")).charger;
  benchmark::DoNotOptimize(dumpIn(files, "IOPMPowerSource.plist", fedDetailsIn));
  inputs.hpmPorts = dumpIn(files, "AppleHPMDevice.plist", portControllersIn);
  benchmark::DoNotOptimize(dumpIn(files, "AppleSmartBattery.plist", portPowerOutIn));
  inputs.portCurrentLimitMa = dumpIn(files, "IODeviceTree.plist", portCurrentLimitsIn);
  return assignStableIDs(buildPortTree(inputs), "");
}

Files readSample(const std::string& machine) {
  SavedReportsRunner runner(std::string(SAMPLES_FOLDER) + "/" + machine);
  Files files;
  const auto read = [&](const std::string& fileName, const ToolCommand& command) {
    files[fileName] = runner.run(command.executable, command.arguments).standardOutput;
  };
  for (const std::string section : {"SPThunderboltDataType", "SPUSBDataType", "SPPowerDataType"}) {
    read(section + ".json", reportCommand(section));
  }
  read("AppleHPMDevice.plist", registryCommand(RegistryDump::portControllers));
  read("AppleSmartBattery.plist", registryCommand(RegistryDump::portPower));
  read("IODeviceTree.plist", registryCommand(RegistryDump::deviceTree));
  read("IOUSBHostDevice.plist", registryCommand(RegistryDump::usbHostDevices));
  read("IOPMPowerSource.plist", registryCommand(RegistryDump::powerSource));
  return files;
}

void deskSample(benchmark::State& state) {
  const Files files = readSample("desk");
  for (auto iteration : state) {
    benchmark::DoNotOptimize(workOfOneScan(files));
  }
}
BENCHMARK(deskSample)->Unit(benchmark::kMillisecond);

void usbDevices(benchmark::State& state) {
  const Files files = makeLargeMachine(static_cast<std::size_t>(state.range(0)));
  for (auto iteration : state) {
    benchmark::DoNotOptimize(workOfOneScan(files));
  }
}
BENCHMARK(usbDevices)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

void deviceTree(benchmark::State& state) {
  const Files files = {
      {"IODeviceTree.plist", makeDeviceTree(static_cast<std::size_t>(state.range(0)))}};
  for (auto iteration : state) {
    benchmark::DoNotOptimize(workOfOneScan(files));
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(deviceTree)->Arg(6'000'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tamberline
