#pragma once

#include "platform/tool_runner.h"
#include "storage/volume_ejector.h"

#include <memory>

namespace tamberline {

/// Ejects with the Mac's disk utility; its output is the message.
class DiskUtilityEjector final : public VolumeEjector {
public:
  explicit DiskUtilityEjector(std::shared_ptr<ToolRunner> tools);

  EjectOutcome eject(const EjectRequest& request) override;

private:
  std::shared_ptr<ToolRunner> tools_;
};

} // namespace tamberline
