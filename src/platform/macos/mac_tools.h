#pragma once

#include "acquisition/machine_source.h"
#include "platform/tool_runner.h"

#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// How to run one of the Mac's tools.
struct ToolCommand {
  std::string executable;
  std::vector<std::string> arguments;

  friend bool operator==(const ToolCommand&, const ToolCommand&) = default;
};

/// The call of the hardware report tool or the registry tool that answers the question.
ToolCommand commandFor(Question question);

/// Answers by running a Mac's tools. The output of a tool is the answer; its exit status is
/// ignored.
class MacTools final : public MachineSource {
public:
  explicit MacTools(std::shared_ptr<ToolRunner> runner);

  std::string answer(Question question) override;

private:
  std::shared_ptr<ToolRunner> runner_;
};

} // namespace tamberline
