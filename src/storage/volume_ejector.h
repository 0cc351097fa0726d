#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

struct EjectRequest {
  std::string mountPoint = {};
  /// The system's number for the block device with the file system (a dev_t); absent if unknown.
  std::optional<std::uint64_t> deviceNumber = {};
};

/// Why the system's disk service was not called.
enum class EjectRefusal : std::uint8_t {
  volumeChanged, // the volume is not mounted there any more
  runningSystem, // its drive contains the running system
  severalDrives, // it is on more than one drive, or more than one drive claims it
};

struct EjectOutcome {
  bool isEjected = false;
  /// The error message of the system's disk service; may be empty.
  std::string message = {};
  std::optional<EjectRefusal> refusal = {};
};

/// Makes the drive of a mounted volume safe to unplug: unmounts its volumes, and detaches the drive
/// if possible. Blocking, without a time limit, since a slow drive may have much to write. Several
/// background tasks may call it in parallel. Failures are return values; nothing is thrown.
class VolumeEjector {
public:
  VolumeEjector() = default;
  VolumeEjector(const VolumeEjector&) = delete;
  VolumeEjector& operator=(const VolumeEjector&) = delete;
  virtual ~VolumeEjector() = default;

  virtual EjectOutcome eject(const EjectRequest& request) = 0;
};

} // namespace tamberline
