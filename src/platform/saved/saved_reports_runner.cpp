#include "platform/saved/saved_reports_runner.h"

#include "acquisition/registry_probes.h"

#include <fstream>
#include <map>
#include <sstream>
#include <system_error>
#include <utility>

namespace tamberline {
namespace {

using CommandLine = std::pair<std::string, std::vector<std::string>>;

const std::map<CommandLine, std::string>& fileNames() {
  static const std::string reportTool = "/usr/sbin/system_profiler";
  static const std::string registryTool = "/usr/sbin/ioreg";
  static const std::map<CommandLine, std::string> names = {
      {{reportTool, {"SPThunderboltDataType", "-json"}}, "SPThunderboltDataType.json"},
      {{reportTool, {"SPUSBDataType", "-json"}}, "SPUSBDataType.json"},
      {{reportTool, {"SPPowerDataType", "-json"}}, "SPPowerDataType.json"},
      {{registryTool, registryArguments::portControllers}, "AppleHPMDevice.plist"},
      {{registryTool, registryArguments::portPower}, "AppleSmartBattery.plist"},
      {{registryTool, registryArguments::deviceTree}, "IODeviceTree.plist"},
      {{registryTool, registryArguments::usbHostDevices}, "IOUSBHostDevice.plist"},
      {{registryTool, registryArguments::powerSource}, "IOPMPowerSource.plist"},
  };
  return names;
}

} // namespace

SavedReportsRunner::SavedReportsRunner(std::filesystem::path folder) : folder_(std::move(folder)) {}

ToolOutput SavedReportsRunner::run(const std::string& executable,
                                   const std::vector<std::string>& arguments) {
  const auto name = fileNames().find({executable, arguments});
  if (name == fileNames().end()) {
    return {};
  }
  const std::filesystem::path path = folder_ / name->second;
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    return {};
  }
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return {content.str(), 0};
}

} // namespace tamberline
