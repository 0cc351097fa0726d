#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tamberline {

/// The questions to a machine. On every system, answers have the formats of a Mac's tools: a
/// section of the hardware report is JSON, a part of the registry is an XML property list.
enum class Question : std::uint8_t {
  // Sections of the hardware report:
  thunderbolt,
  usb,
  power,
  // Parts of the registry:
  portControllers,
  portPower,
  deviceTree, // contains the current limits of the ports
  usbHostDevices,
  powerSource,
  /// The section with the USB devices on newer releases of macOS. Other systems do not have it, and
  /// scans do not request it.
  newerUsb,
};

/// The eight questions of a scan: the three reports first, the others in the order in which a scan
/// asks them.
inline constexpr std::array<Question, 8> questionsOfAScan = {
    Question::thunderbolt,    Question::usb,         Question::power,
    Question::usbHostDevices, Question::powerSource, Question::portControllers,
    Question::portPower,      Question::deviceTree,
};

/// Answers questions about one machine. Blocking, without a time limit. Several background tasks
/// may call it in parallel. On failure the answer is empty; nothing is thrown.
class MachineSource {
public:
  MachineSource() = default;
  MachineSource(const MachineSource&) = delete;
  MachineSource& operator=(const MachineSource&) = delete;
  virtual ~MachineSource() = default;

  virtual std::string answer(Question question) = 0;
};

} // namespace tamberline
