#include "platform/macos/mac_tool_runner.h"

#include "acquisition/tool_commands.h"
#include "platform/macos/mounted_media.h"
#include "platform/macos/usb_host_report.h"
#include "registry/property_list.h"
#include "reports/json_values.h"
#include "reports/report_decoding.h"
#include "reports/thunderbolt_report.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

ToolOutput runCommand(ToolRunner& tools, const ToolCommand& command) {
  return tools.run(command.executable, command.arguments);
}

/// Whether it holds the section and nothing in it. Older releases print that too, where nothing is
/// attached.
bool isEmptySection(const std::string& output, const char* section) {
  const std::optional<json> report = decodeReport(output);
  if (!report || !report->contains(section)) {
    return false;
  }
  const json& entries = report->at(section);
  return entries.is_array() && entries.empty();
}

constexpr const char* hostSection = "SPUSBHostDataType";

/// Nothing on releases without the section, where there is no other to read.
std::optional<json> hostReportWithBuses(const std::string& output) {
  std::optional<json> report = decodeReport(output);
  const bool hasBuses = report && !objectsMember(*report, hostSection).empty();
  return hasBuses ? std::move(report) : std::nullopt;
}

ThunderboltPorts thunderboltPorts(ToolRunner& tools) {
  const std::optional<json> report =
      decodeReport(runCommand(tools, reportCommand("SPThunderboltDataType")).standardOutput);
  ThunderboltPorts ports;
  for (const ThunderboltBus& bus :
       report ? parseThunderbolt(*report) : std::vector<ThunderboltBus>()) {
    ports.insert(bus.busNumber);
  }
  return ports;
}

VolumesByLocation mountedVolumes(ToolRunner& tools, const std::vector<Mount>& mounts) {
  ToolOutput dump = runCommand(tools, registryCommand(RegistryDump::usbHostDevices));
  const auto list = PropertyList::decode(std::move(dump.standardOutput));
  return list ? mountedVolumesIn(*list, mounts) : VolumesByLocation();
}

} // namespace

MacToolRunner::MacToolRunner(std::shared_ptr<ToolRunner> tools, MountTableReader readMountTable)
    : tools_(std::move(tools)), readMountTable_(std::move(readMountTable)) {}

ToolOutput MacToolRunner::run(const std::string& executable,
                              const std::vector<std::string>& arguments) {
  constexpr const char* section = "SPUSBDataType";
  ToolOutput output = tools_->run(executable, arguments);
  if (ToolCommand{executable, arguments} != reportCommand(section) ||
      !isEmptySection(output.standardOutput, section)) {
    return output;
  }
  ToolOutput hostOutput = runCommand(*tools_, reportCommand(hostSection));
  if (isTooLargeReport(hostOutput.standardOutput)) {
    return hostOutput; // which cannot be read, and whoever asked says so
  }
  const std::optional<json> hostReport = hostReportWithBuses(hostOutput.standardOutput);
  if (!hostReport) {
    return output;
  }
  const ThunderboltPorts ports =
      needsThunderboltPorts(*hostReport) ? thunderboltPorts(*tools_) : ThunderboltPorts();
  const json report = usbReportFrom(*hostReport, mountedVolumes(*tools_, readMountTable_()), ports);
  return {report.dump(-1, ' ', /*ensure_ascii=*/false, json::error_handler_t::replace),
          output.exitStatus};
}

ToolOutput MacToolRunner::runWithErrors(const std::string& executable,
                                        const std::vector<std::string>& arguments) {
  return tools_->runWithErrors(executable, arguments);
}

} // namespace tamberline
