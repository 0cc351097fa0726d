#include "platform/saved/saved_reports.h"

#include "platform/macos/mac_machine.h"
#include "platform/saved/regular_file.h"
#include "platform/tool_runner.h"

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

SavedReports::SavedReports(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::string SavedReports::answer(Question question) {
  return readRegularFile(folder_ / savedFileName(question), maxToolOutput).value_or("");
}

std::shared_ptr<MachineSource> savedMachine(const std::filesystem::path& folder) {
  return std::make_shared<MacMachine>(std::make_shared<SavedReports>(folder),
                                      [] { return std::vector<Mount>(); });
}

} // namespace tamberline
