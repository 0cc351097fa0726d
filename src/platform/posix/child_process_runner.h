#pragma once

#include "platform/tool_runner.h"

namespace tamberline {

/// Runs tools as child processes. A child inherits the environment and the working directory, but
/// no descriptor except the pipe for its output. The process ignores SIGPIPE from the first run on.
/// A tool that prints more than `maxToolOutput` is killed.
class ChildProcessRunner final : public ToolRunner {
public:
  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;
};

} // namespace tamberline
