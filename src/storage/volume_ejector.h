#pragma once

#include <string>

namespace tamberline {

struct EjectOutcome {
  bool isEjected = false;
  /// Why it was not, in the words of the system's own disk service; may be empty.
  std::string message = {};
};

/// Makes the drive of a mounted volume safe to pull: unmounted, and detached where the drive can
/// be. Blocking, without a time limit, since a slow drive may have much to write; called on
/// background tasks, several at once. Failure is a value: nothing is thrown.
class VolumeEjector {
public:
  VolumeEjector() = default;
  VolumeEjector(const VolumeEjector&) = delete;
  VolumeEjector& operator=(const VolumeEjector&) = delete;
  virtual ~VolumeEjector() = default;

  virtual EjectOutcome eject(const std::string& mountPoint) = 0;
};

} // namespace tamberline
