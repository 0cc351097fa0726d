#pragma once

#include "support/fake_tools.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace tamberline {

/// What can go wrong with a run of a tool, and `none`.
enum class ToolFault : std::uint8_t {
  none,
  isMissing,
  failsWithoutOutput,
  failsWithItsReport,
  printsNothing,
  printsHalf,
  printsGarbage,
  printsHugeReport,
  printsHugeGarbage,
  diesHalfway,
  diesAfterItsReport,
};

inline constexpr std::array<ToolFault, 10> allToolFaults = {
    ToolFault::isMissing,          ToolFault::failsWithoutOutput, ToolFault::failsWithItsReport,
    ToolFault::printsNothing,      ToolFault::printsHalf,         ToolFault::printsGarbage,
    ToolFault::printsHugeReport,   ToolFault::printsHugeGarbage,  ToolFault::diesHalfway,
    ToolFault::diesAfterItsReport,
};

/// The eight runs of a scan by the names of their saved files: the three reports first, the others
/// in the order in which a scan asks for them.
inline constexpr std::array<const char*, 8> allToolRuns = {
    "SPThunderboltDataType.json", "SPUSBDataType.json",    "SPPowerDataType.json",
    "IOUSBHostDevice.plist",      "IOPMPowerSource.plist", "AppleHPMDevice.plist",
    "AppleSmartBattery.plist",    "IODeviceTree.plist",
};

/// Such as "prints half", for messages.
std::string nameOf(ToolFault fault);

/// By saved file; a run that is not named goes well.
using ToolFaults = std::map<std::string, ToolFault>;

/// A machine by its saved files.
using SavedMachine = std::map<std::string, std::string>;

/// The tools of a machine, some of which go wrong.
class FaultyTools final : public ToolRunner {
public:
  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;

  void setMachine(const SavedMachine& machine);
  void setFaults(ToolFaults faults) { faults_ = std::move(faults); }
  /// How much a tool prints that prints too much.
  void setHugeSize(std::size_t bytes) { hugeSize_ = bytes; }

  std::size_t runCount(const std::string& fileName) const { return tools_.runCount(fileName); }

private:
  FakeTools tools_;
  ToolFaults faults_; // written only while no tool runs
  std::size_t hugeSize_ = 20'000;
};

} // namespace tamberline
