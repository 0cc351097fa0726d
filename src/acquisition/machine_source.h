#pragma once

#include <cstdint>
#include <string>

namespace tamberline {

/// What can be asked of a machine. Answers have the formats of a Mac's tools, on every system: a
/// section of the hardware report is JSON, a part of the registry an XML property list.
enum class Question : std::uint8_t {
  // Sections of the hardware report:
  thunderbolt,
  usb,
  power,
  // Parts of the registry:
  portControllers,
  portPower,
  deviceTree, // which holds the current limits of the ports
  usbHostDevices,
  powerSource,
  /// The section in which newer releases of the Mac keep their USB devices. A scan never asks for
  /// it; the other systems do not have it.
  newerUsb,
};

/// Answers questions about one machine. Blocking, and called on background tasks, several at once.
/// Failure is an empty answer: nothing is thrown. There is no time limit.
class MachineSource {
public:
  MachineSource() = default;
  MachineSource(const MachineSource&) = delete;
  MachineSource& operator=(const MachineSource&) = delete;
  virtual ~MachineSource() = default;

  virtual std::string answer(Question question) = 0;
};

} // namespace tamberline
