#pragma once

#include "acquisition/machine_source.h"
#include "platform/tool_runner.h"

#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// How one of the Mac's tools is run.
struct ToolCommand {
  std::string executable;
  std::vector<std::string> arguments;

  friend bool operator==(const ToolCommand&, const ToolCommand&) = default;
};

/// The run of the hardware report tool or the registry tool that answers the question.
ToolCommand commandFor(Question question);

/// Asks a Mac's tools. Whatever a tool prints is the answer; its exit status does not count.
class MacTools final : public MachineSource {
public:
  explicit MacTools(std::shared_ptr<ToolRunner> runner);

  std::string answer(Question question) override;

private:
  std::shared_ptr<ToolRunner> runner_;
};

} // namespace tamberline
