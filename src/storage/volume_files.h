#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace tamberline {

/// Distinguishes the volume at a mount point from another one that is mounted there later.
struct VolumeIdentity {
  /// An opaque text, equal only for the same volume. Empty if nothing is mounted.
  std::string text = {};
  /// The system's number for the block device with the file system (a dev_t); absent if the file
  /// system is not on exactly one device.
  std::optional<std::uint64_t> deviceNumber = {};

  /// Also false if nothing is mounted.
  bool isSameVolumeAs(const VolumeIdentity& other) const {
    return !text.empty() && text == other.text;
  }
};

/// An open file of a volume. Bypasses the system's cache if the file system allows it. The
/// destructor closes the file. Blocking; used by one background task at a time.
class VolumeFile {
public:
  /// Returned by `write` if the volume is full.
  static constexpr std::int64_t noSpaceLeft = -2;

  VolumeFile() = default;
  VolumeFile(const VolumeFile&) = delete;
  VolumeFile& operator=(const VolumeFile&) = delete;
  virtual ~VolumeFile() = default;

  /// Returns the number of bytes written, which may be less than requested; 0 or less on failure.
  virtual std::int64_t write(std::span<const std::byte> bytes) = 0;

  /// Returns the number of bytes read; 0 at the end of the file, negative on failure.
  virtual std::int64_t read(std::span<std::byte> buffer) = 0;

  /// Waits until everything is on the medium, including what is in the drive's own cache. False if
  /// that fails or the file system cannot confirm it.
  virtual bool flushToMedium() = 0;

  /// Whether the data was read from the medium. Also false if that is unknown.
  virtual bool hasReadMedium() const = 0;
};

/// The root folder of a volume. It is kept open, so all operations are on this folder even if
/// something else is mounted at its path, and the volume cannot be unmounted. Failures are return
/// values; nothing is thrown. Blocking; used by one background task at a time.
class VolumeFolder {
public:
  enum class CreateFailure : std::uint8_t { readOnly, notPermitted, noRoom };
  using Created = std::variant<std::unique_ptr<VolumeFile>, CreateFailure>;

  VolumeFolder() = default;
  VolumeFolder(const VolumeFolder&) = delete;
  VolumeFolder& operator=(const VolumeFolder&) = delete;
  virtual ~VolumeFolder() = default;

  virtual VolumeIdentity identity() const = 0;

  /// The space that an unprivileged user can still write to; absent if the system does not report
  /// it.
  virtual std::optional<std::uint64_t> freeBytes() const = 0;

  /// False if written data stays in a cache between this program and the medium that cannot be
  /// bypassed or dropped.
  virtual bool canReadMedium() const = 0;

  /// Creates a file and opens it for writing. Replaces an existing regular file, but not a folder,
  /// a symbolic link, a device or a file with further hard links: the result is then `readOnly`.
  virtual Created create(const std::string& name) = 0;

  /// Opens the file that `create` made, such that reads come from the medium and not from the
  /// system's cache. Null if that is impossible or if another file has the name now.
  virtual std::unique_ptr<VolumeFile> open(const std::string& name) = 0;

  /// Removes only a file that `create` would replace.
  virtual void remove(const std::string& name) = 0;
};

/// The volumes of the machine. Blocking; called on background tasks, several at once.
class VolumeFiles {
public:
  VolumeFiles() = default;
  VolumeFiles(const VolumeFiles&) = delete;
  VolumeFiles& operator=(const VolumeFiles&) = delete;
  virtual ~VolumeFiles() = default;

  /// Null if there is no such folder or it may not be opened.
  virtual std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) = 0;
};

} // namespace tamberline
