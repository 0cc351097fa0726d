#include "platform/macos/mac_tools.h"

#include "platform/macos/usb_host_report.h"
#include "reports/report_decoding.h"

#include <utility>

namespace tamberline {
namespace {

ToolCommand reportCommand(const char* section) {
  return {"/usr/sbin/system_profiler", {section, "-json"}};
}

ToolCommand registryCommand(std::vector<std::string> arguments) {
  return {"/usr/sbin/ioreg", std::move(arguments)};
}

} // namespace

ToolCommand commandFor(Question question) {
  switch (question) {
  case Question::thunderbolt:
    return reportCommand(thunderboltSectionKey);
  case Question::usb:
    return reportCommand(usbSectionKey);
  case Question::power:
    return reportCommand(powerSectionKey);
  case Question::newerUsb:
    return reportCommand(usbHostSectionKey);
  case Question::portControllers:
    return registryCommand({"-a", "-r", "-c", "AppleHPMDevice", "-l"});
  case Question::portPower:
    return registryCommand({"-a", "-r", "-c", "AppleSmartBattery", "-l"});
  case Question::deviceTree:
    return registryCommand({"-a", "-l", "-p", "IODeviceTree"});
  case Question::usbHostDevices:
    return registryCommand({"-a", "-r", "-c", "IOUSBHostDevice", "-l"});
  case Question::powerSource:
    return registryCommand({"-c", "IOPMPowerSource", "-r", "-a"});
  }
  return {};
}

MacTools::MacTools(std::shared_ptr<ToolRunner> runner) : runner_(std::move(runner)) {}

std::string MacTools::answer(Question question) {
  const ToolCommand command = commandFor(question);
  return runner_->run(command.executable, command.arguments).standardOutput;
}

} // namespace tamberline
