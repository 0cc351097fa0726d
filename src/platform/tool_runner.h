#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// In bytes; far more than any report or dump. If a tool prints more, a runner returns no output.
constexpr std::size_t maxToolOutput = 256'000'000;

struct ToolOutput {
  /// The bytes that the tool wrote; empty if it could not be started.
  std::string standardOutput;
  /// Absent if the tool could not be started or was ended by a signal.
  std::optional<int> exitStatus;
};

/// Runs a system tool and waits until it ends, without a time limit. Called on background threads,
/// several at once. Failures are returned, never thrown.
class ToolRunner {
public:
  ToolRunner() = default;
  ToolRunner(const ToolRunner&) = delete;
  ToolRunner& operator=(const ToolRunner&) = delete;
  virtual ~ToolRunner() = default;

  virtual ToolOutput run(const std::string& executable,
                         const std::vector<std::string>& arguments) = 0;

  /// The same, but the output also contains what the tool writes to standard error, in the order of
  /// writing.
  virtual ToolOutput runWithErrors(const std::string& executable,
                                   const std::vector<std::string>& arguments) = 0;
};

} // namespace tamberline
