#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// How one of the system's tools is run.
struct ToolCommand {
  std::string executable;
  std::vector<std::string> arguments;

  friend bool operator==(const ToolCommand&, const ToolCommand&) = default;
};

/// The hardware report tool for one section, such as "SPUSBDataType".
ToolCommand reportCommand(std::string_view section);

/// What the registry tool dumps, one command line for each probe.
enum class RegistryDump : std::uint8_t {
  portControllers,
  portPower,
  deviceTree,
  usbHostDevices,
  powerSource,
};

ToolCommand registryCommand(RegistryDump dump);

} // namespace tamberline
