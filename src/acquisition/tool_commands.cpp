#include "acquisition/tool_commands.h"

namespace tamberline {
namespace {

std::vector<std::string> argumentsFor(RegistryDump dump) {
  switch (dump) {
  case RegistryDump::portControllers:
    return {"-a", "-r", "-c", "AppleHPMDevice", "-l"};
  case RegistryDump::portPower:
    return {"-a", "-r", "-c", "AppleSmartBattery", "-l"};
  case RegistryDump::deviceTree:
    return {"-a", "-l", "-p", "IODeviceTree"};
  case RegistryDump::usbHostDevices:
    return {"-a", "-r", "-c", "IOUSBHostDevice", "-l"};
  case RegistryDump::powerSource:
    return {"-c", "IOPMPowerSource", "-r", "-a"};
  }
  return {};
}

} // namespace

ToolCommand reportCommand(std::string_view section) {
  return {"/usr/sbin/system_profiler", {std::string(section), "-json"}};
}

ToolCommand registryCommand(RegistryDump dump) {
  return {"/usr/sbin/ioreg", argumentsFor(dump)};
}

} // namespace tamberline
