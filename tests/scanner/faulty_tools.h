#pragma once

#include "platform/tool_runner.h"
#include "support/fake_machine.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace tamberline {

/// The possible faults of a tool's run, and `none`.
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

/// Such as "prints half", for messages.
std::string nameOf(ToolFault fault);

/// By what the run is to answer; a run that is not named goes well.
using ToolFaults = std::map<Question, ToolFault>;

/// What the tools of a machine print.
using Answers = std::map<Question, std::string>;

/// The tools of a Mac, some of which go wrong.
class FaultyTools final : public ToolRunner {
public:
  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;

  void setAnswers(const Answers& answers);
  void setFaults(ToolFaults faults) { faults_ = std::move(faults); }
  /// The size of huge output.
  void setHugeSize(std::size_t bytes) { hugeSize_ = bytes; }

  std::size_t runCount(Question question) const { return machine_.askCount(question); }

private:
  FakeMachine machine_;
  ToolFaults faults_; // written only while no tool runs
  std::size_t hugeSize_ = 20'000;
};

} // namespace tamberline
