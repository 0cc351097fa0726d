// The way from the files of a folder of saved reports, in the order of their names, to the document
// and the panel.
#include "fuzz_target.h"
#include "platform/macos/mac_tool_runner.h"
#include "scan_checks.h"
#include "support/fake_tools.h"

#include <array>
#include <utility>

namespace tamberline {
namespace {

constexpr std::array fileNames = {
    "AppleHPMDevice.plist",       "AppleSmartBattery.plist", "IODeviceTree.plist",
    "IOPMPowerSource.plist",      "IOUSBHostDevice.plist",   "SPPowerDataType.json",
    "SPThunderboltDataType.json", "SPUSBDataType.json",      "SPUSBHostDataType.json",
};

std::shared_ptr<ToolRunner> toolsThatPrint(std::string_view input) {
  const auto tools = std::make_shared<FakeTools>();
  std::vector<std::string> files = partsOf(input, fileNames.size());
  for (std::size_t index = 0; index < fileNames.size(); ++index) {
    tools->answer(fileNames[index], std::move(files[index]));
  }
  return std::make_shared<MacToolRunner>(tools, [] {
    return std::vector<Mount>{{"/dev/disk4s1", "/Volumes/Fieldwork"}};
  });
}

} // namespace

void tryInput(std::string_view input) {
  requireSoundScans(toolsThatPrint(input));
}

} // namespace tamberline
