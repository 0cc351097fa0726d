#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// In bytes; far more than any report or dump. Of a tool that prints more, a runner gives nothing.
constexpr std::size_t maxToolOutput = 256'000'000;

struct ToolOutput {
  /// Whatever the tool wrote before it ended, as bytes; empty when it could not be started.
  std::string standardOutput;
  /// Absent when the tool could not be started or was ended by a signal.
  std::optional<int> exitStatus;
};

/// Runs one of the system's tools to its end. Blocking, and called on background tasks, several at
/// once. Failure is a value: nothing is thrown. There is no time limit.
class ToolRunner {
public:
  ToolRunner() = default;
  ToolRunner(const ToolRunner&) = delete;
  ToolRunner& operator=(const ToolRunner&) = delete;
  virtual ~ToolRunner() = default;

  virtual ToolOutput run(const std::string& executable,
                         const std::vector<std::string>& arguments) = 0;

  /// The same, and what the tool writes to standard error stands in the output too, in the order of
  /// writing.
  virtual ToolOutput runWithErrors(const std::string& executable,
                                   const std::vector<std::string>& arguments) = 0;
};

} // namespace tamberline
