#pragma once

#include "storage/volume_ejector.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {

/// An ejector that gives the answers set by the test, and succeeds otherwise.
class FakeEjector final : public VolumeEjector {
public:
  EjectOutcome eject(const EjectRequest& request) override {
    mountPoints.push_back(request.mountPoint);
    lastDeviceNumber = request.deviceNumber;
    if (refusal) {
      return {.refusal = refusal};
    }
    if (failures.empty()) {
      return {.isEjected = true};
    }
    std::string message = std::move(failures.front());
    failures.pop_front();
    return {.isEjected = false, .message = std::move(message)};
  }

  std::deque<std::string> failures;
  std::optional<EjectRefusal> refusal;
  std::optional<std::uint64_t> lastDeviceNumber;
  std::vector<std::string> mountPoints;
};

} // namespace tamberline
