#include "platform/saved/saved_reports_runner.h"

#include "acquisition/tool_runner.h"
#include "platform/macos/mac_tool_runner.h"
#include "platform/saved/regular_file.h"

#include <utility>
#include <vector>

namespace tamberline {

const char* savedFileName(Question question) {
  switch (question) {
  case Question::thunderbolt:
    return "SPThunderboltDataType.json";
  case Question::usb:
    return "SPUSBDataType.json";
  case Question::power:
    return "SPPowerDataType.json";
  case Question::newerUsb:
    return "SPUSBHostDataType.json";
  case Question::portControllers:
    return "AppleHPMDevice.plist";
  case Question::portPower:
    return "AppleSmartBattery.plist";
  case Question::deviceTree:
    return "IODeviceTree.plist";
  case Question::usbHostDevices:
    return "IOUSBHostDevice.plist";
  case Question::powerSource:
    return "IOPMPowerSource.plist";
  }
  return "";
}

SavedReportsRunner::SavedReportsRunner(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::string SavedReportsRunner::answer(Question question) {
  return readRegularFile(folder_ / savedFileName(question), mostToolOutput).value_or("");
}

std::shared_ptr<MachineSource> savedMachine(const std::filesystem::path& folder) {
  return std::make_shared<MacToolRunner>(std::make_shared<SavedReportsRunner>(folder),
                                         [] { return std::vector<Mount>(); });
}

} // namespace tamberline
