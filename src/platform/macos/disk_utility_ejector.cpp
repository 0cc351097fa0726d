#include "platform/macos/disk_utility_ejector.h"

#include <utility>

namespace tamberline {

DiskUtilityEjector::DiskUtilityEjector(std::shared_ptr<ToolRunner> tools)
    : tools_(std::move(tools)) {}

EjectOutcome DiskUtilityEjector::eject(const EjectRequest& request) {
  ToolOutput output = tools_->runWithErrors("/usr/sbin/diskutil", {"eject", request.mountPoint});
  return {.isEjected = output.exitStatus == 0, .message = std::move(output.standardOutput)};
}

} // namespace tamberline
