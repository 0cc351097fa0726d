#include "platform/saved/saved_reports_runner.h"

#include "acquisition/tool_commands.h"
#include "platform/macos/mac_tool_runner.h"
#include "platform/saved/regular_file.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

/// Absent for a command line that no file stands for.
std::optional<std::string> fileNameFor(const ToolCommand& command) {
  for (const char* section :
       {"SPThunderboltDataType", "SPUSBDataType", "SPUSBHostDataType", "SPPowerDataType"}) {
    if (command == reportCommand(section)) {
      return std::string(section) + ".json";
    }
  }
  static constexpr std::array<std::pair<RegistryDump, const char*>, 5> dumps = {{
      {RegistryDump::portControllers, "AppleHPMDevice.plist"},
      {RegistryDump::portPower, "AppleSmartBattery.plist"},
      {RegistryDump::deviceTree, "IODeviceTree.plist"},
      {RegistryDump::usbHostDevices, "IOUSBHostDevice.plist"},
      {RegistryDump::powerSource, "IOPMPowerSource.plist"},
  }};
  for (const auto& [dump, fileName] : dumps) {
    if (command == registryCommand(dump)) {
      return fileName;
    }
  }
  return std::nullopt;
}

} // namespace

SavedReportsRunner::SavedReportsRunner(std::filesystem::path folder) : folder_(std::move(folder)) {}

ToolOutput SavedReportsRunner::run(const std::string& executable,
                                   const std::vector<std::string>& arguments) {
  const std::optional<std::string> fileName = fileNameFor({executable, arguments});
  if (!fileName) {
    return {};
  }
  std::optional<std::string> content = readRegularFile(folder_ / *fileName, mostToolOutput);
  return content ? ToolOutput{std::move(*content), 0} : ToolOutput();
}

ToolOutput SavedReportsRunner::runWithErrors(const std::string& executable,
                                             const std::vector<std::string>& arguments) {
  return run(executable, arguments);
}

std::shared_ptr<ToolRunner> savedMachineTools(const std::filesystem::path& folder) {
  return std::make_shared<MacToolRunner>(std::make_shared<SavedReportsRunner>(folder),
                                         [] { return std::vector<Mount>(); });
}

} // namespace tamberline
