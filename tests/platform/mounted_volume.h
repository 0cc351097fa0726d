#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/types.h>

namespace tamberline {

/// This machine cannot make the volume; the text says what it lacks.
class VolumeUnavailable final : public std::runtime_error {
public:
  using runtime_error::runtime_error;
};

struct VolumeSetting {
  /// As the kernel names it; "exfat-fuse" and "ntfs-3g" are drivers that run as programs.
  std::string fileSystem = "tmpfs";
  std::string mountOptions = {};
  /// The last component of the mount point.
  std::string name = "volume";
  /// How much the medium really takes before it fails; everything when absent.
  std::optional<std::uint64_t> mediumBytes = std::nullopt;
};

/// A file system of the running test, empty, mounted where no other process sees it: the system
/// takes it back with the process, however that ends. What is not in memory is on a sparse file.
class MountedVolume {
public:
  /// Throws VolumeUnavailable.
  explicit MountedVolume(const VolumeSetting& setting);
  MountedVolume(const MountedVolume&) = delete;
  MountedVolume& operator=(const MountedVolume&) = delete;
  ~MountedVolume();

  std::string mountPoint() const { return mountPoint_.string(); }

  /// "/dev/loop0"; empty for what is in memory.
  const std::string& device() const { return device_; }

  void makeReadOnly() const;

  /// Somebody unmounts the volume and mounts another one of its kind in its place.
  void replace();

  /// Somebody mounts something else over the volume.
  void mountOver() const;

  /// The volume goes away, while what is open stays open.
  void detach() const;

  /// Every later access to the volume fails, as when the drive is pulled. Only ext4 and xfs.
  void pullDrive() const;

  /// What the medium holds is gone and cannot be read.
  void loseMediumContent() const;

private:
  /// A folder of its own with a blank and a letter beyond ASCII in its path, removed last,
  /// with what is mounted in it.
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
  pid_t keeper_ = -1; // of a driver that is a program
};

} // namespace tamberline
