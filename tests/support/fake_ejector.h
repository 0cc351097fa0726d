#pragma once

#include "storage/volume_ejector.h"

#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {

/// An ejector that answers what the test tells it to, and succeeds otherwise.
class FakeEjector final : public VolumeEjector {
public:
  EjectOutcome eject(const std::string& mountPoint) override {
    mountPoints.push_back(mountPoint);
    if (failures.empty()) {
      return {.isEjected = true};
    }
    std::string message = std::move(failures.front());
    failures.pop_front();
    return {.isEjected = false, .message = std::move(message)};
  }

  std::deque<std::string> failures;
  std::vector<std::string> mountPoints;
};

} // namespace tamberline
