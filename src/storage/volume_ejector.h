#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

struct EjectRequest {
  std::string mountPoint = {};
  /// The block device with the file system, as the system numbers it (a dev_t); absent where it is
  /// not known.
  std::optional<std::uint64_t> deviceNumber = {};
};

/// Why nothing was asked of the system's own disk service.
enum class EjectRefusal : std::uint8_t {
  volumeChanged, // the volume is not mounted there any more
  runningSystem, // its drive holds the running system
  severalDrives, // it lies on more than one drive, or more than one drive claims it
};

struct EjectOutcome {
  bool isEjected = false;
  /// Why it was not, in the words of the system's own disk service; may be empty.
  std::string message = {};
  std::optional<EjectRefusal> refusal = {};
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

  virtual EjectOutcome eject(const EjectRequest& request) = 0;
};

} // namespace tamberline
