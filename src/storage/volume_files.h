#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace tamberline {

/// An open file of a volume whose bytes go past the system's cache where the file system lets them.
/// Closed when it goes. Blocking; used by one background task at a time.
class VolumeFile {
public:
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
};

/// The volumes of the machine, as far as a speed test needs them. Failure is a value: nothing is
/// thrown. Blocking; called on background tasks, several at once.
class VolumeFiles {
public:
  VolumeFiles() = default;
  VolumeFiles(const VolumeFiles&) = delete;
  VolumeFiles& operator=(const VolumeFiles&) = delete;
  virtual ~VolumeFiles() = default;

  /// What an ordinary person may still write to the volume; absent when the system does not tell.
  virtual std::optional<std::uint64_t> freeBytes(const std::string& mountPoint) = 0;

  /// Opens a file for writing, empty. Null when that cannot be, and when something that is no file
  /// of its own has the name: a folder, a symbolic link, a device, another name of some file.
  virtual std::unique_ptr<VolumeFile> create(const std::string& path) = 0;

  /// Opens a file so that reading it reads the medium and nothing that the system remembers. Null
  /// when that cannot be.
  virtual std::unique_ptr<VolumeFile> open(const std::string& path) = 0;

  /// Removes what `create` would have opened, and leaves everything else alone.
  virtual void remove(const std::string& path) = 0;
};

} // namespace tamberline
