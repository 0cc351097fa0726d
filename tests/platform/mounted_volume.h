#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/types.h>

namespace tamberline {

/// This machine cannot make the volume; the text says what is missing.
class VolumeUnavailable final : public std::runtime_error {
public:
  using runtime_error::runtime_error;
};

struct VolumeSetting {
  /// The kernel's name for it; "exfat-fuse" and "ntfs-3g" are drivers that run as programs.
  std::string fileSystem = "tmpfs";
  std::string mountOptions = {};
  /// The last component of the mount point.
  std::string name = "volume";
  /// How much the medium accepts before it fails; everything if absent.
  std::optional<std::uint64_t> mediumBytes = std::nullopt;
};

/// An empty file system of the running test, mounted where no other process sees it: the system
/// removes it when the process ends in any way. If it is not in memory, it is on a sparse file.
class MountedVolume {
public:
  /// Throws VolumeUnavailable.
  explicit MountedVolume(const VolumeSetting& setting);
  MountedVolume(const MountedVolume&) = delete;
  MountedVolume& operator=(const MountedVolume&) = delete;
  ~MountedVolume();

  std::string mountPoint() const { return mountPoint_.string(); }

  /// "/dev/loop0"; empty for a file system in memory.
  const std::string& device() const { return device_; }

  void makeReadOnly() const;

  /// Unmounts the volume and mounts another one of the same kind in its place.
  void replace();

  /// Mounts something else over the volume.
  void mountOver() const;

  /// Detaches the volume; open files stay open.
  void detach() const;

  /// Makes every later access to the volume fail, as when the drive is pulled. Only ext4 and xfs.
  void pullDrive() const;

  /// Makes the content of the medium unreadable.
  void loseMediumContent() const;

private:
  /// A folder with a blank and a non-ASCII letter in its path, removed last, together with what is
  /// mounted in it.
  struct Folder {
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();
    std::filesystem::path path;
  };

  static void mountInMemory(const std::string& fileSystem, const std::filesystem::path& place,
                            const std::string& options);
  void mountVolume();
  void makeMedium() const;
  void mountMedium();
  void startDriver();

  VolumeSetting setting_;
  Folder folder_;
  std::filesystem::path mediumFolder_;
  std::filesystem::path medium_;
  std::filesystem::path mountPoint_;
  std::string device_;
  pid_t keeper_ = -1; // if the driver is a program
};

} // namespace tamberline
