#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace tamberline {

/// Tells the volume that is mounted at a place from another one that is mounted there later.
struct VolumeIdentity {
  /// Equal for the same volume and different for another one, and nothing else. Empty where nothing
  /// is mounted.
  std::string text = {};
  /// The number by which the system knows the block device with the file system (a dev_t); absent
  /// where the file system does not lie on one device.
  std::optional<std::uint64_t> deviceNumber = {};

  /// False also where nothing is mounted.
  bool isSameVolumeAs(const VolumeIdentity& other) const {
    return !text.empty() && text == other.text;
  }
};

/// An open file of a volume whose bytes go past the system's cache where the file system lets them.
/// Closed when it goes. Blocking; used by one background task at a time.
class VolumeFile {
public:
  /// What a write gives when the volume is full.
  static constexpr std::int64_t noSpaceLeft = -2;

  VolumeFile() = default;
  VolumeFile(const VolumeFile&) = delete;
  VolumeFile& operator=(const VolumeFile&) = delete;
  virtual ~VolumeFile() = default;

  /// How many of the bytes were written, which may be fewer than asked for; 0 or less on failure.
  virtual std::int64_t write(std::span<const std::byte> bytes) = 0;

  /// How many bytes were read; 0 at the end of the file, negative on failure.
  virtual std::int64_t read(std::span<std::byte> buffer) = 0;

  /// Returns when the medium holds everything, whatever the drive itself would like to cache. False
  /// when it does not, or when the file system cannot tell.
  virtual bool flushToMedium() = 0;

  /// Whether what was read came from the medium. False also when nobody can tell.
  virtual bool hasReadMedium() const = 0;
};

/// The root folder of a volume, held open: whatever happens to its path meanwhile, everything below
/// is about this folder. Holds the volume mounted. Failure is a value: nothing is thrown. Blocking;
/// used by one background task at a time.
class VolumeFolder {
public:
  enum class CreateFailure : std::uint8_t { readOnly, notPermitted, noRoom };
  using Created = std::variant<std::unique_ptr<VolumeFile>, CreateFailure>;

  VolumeFolder() = default;
  VolumeFolder(const VolumeFolder&) = delete;
  VolumeFolder& operator=(const VolumeFolder&) = delete;
  virtual ~VolumeFolder() = default;

  virtual VolumeIdentity identity() const = 0;

  /// What an ordinary person may still write to the volume; absent when the system does not tell.
  virtual std::optional<std::uint64_t> freeBytes() const = 0;

  /// False when something between this program and the medium remembers what was written, and
  /// cannot be made to forget it.
  virtual bool canReadMedium() const = 0;

  /// Makes a file and opens it for writing. A file that has the name goes, but nothing else: not a
  /// folder, a symbolic link, a device, another name of some file. Those count as a read-only
  /// volume.
  virtual Created create(const std::string& name) = 0;

  /// Opens the file that `create` made so that reading it reads the medium and nothing that the
  /// system remembers. Null when that cannot be, or when another file has the name now.
  virtual std::unique_ptr<VolumeFile> open(const std::string& name) = 0;

  /// Removes what `create` would have replaced, and leaves everything else alone.
  virtual void remove(const std::string& name) = 0;
};

/// The volumes of the machine. Blocking; called on background tasks, several at once.
class VolumeFiles {
public:
  VolumeFiles() = default;
  VolumeFiles(const VolumeFiles&) = delete;
  VolumeFiles& operator=(const VolumeFiles&) = delete;
  virtual ~VolumeFiles() = default;

  /// Null when there is no such folder, or when it may not be opened.
  virtual std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) = 0;
};

} // namespace tamberline
