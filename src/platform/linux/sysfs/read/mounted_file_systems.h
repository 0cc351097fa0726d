#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// A longer table is read only in part.
inline constexpr std::size_t maxMountTableBytes = std::size_t{16} * 1024 * 1024;

/// A line of the kernel's mount table. The texts may be invalid UTF-8.
struct MountedFileSystem {
  std::string deviceNumber; // "8:17"
  std::string root;         // the mounted part of the file system: "/" is all of it
  std::string mountPoint;
  std::string type;   // "ext4"
  std::string source; // "/dev/sdb1", or any other text passed to mount
};

/// The names of a block device in the mount table; an empty name means that there is none.
struct BlockDeviceNames {
  std::string number; // "8:17"
  std::string kernelName;
  std::string mappedName; // such as that of a logical volume
};

/// Whether the file system is on the device. Its source is used only if nothing else identifies the
/// device, because anyone who may mount can pass any device name there.
bool isOn(const MountedFileSystem& mount, const BlockDeviceNames& device);

/// In the order of the table; malformed lines are left out.
std::vector<MountedFileSystem> mountedFileSystemsIn(std::string_view mountTable);

} // namespace tamberline::sysfs
