#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// A longer table is read in part.
inline constexpr std::size_t maxMountTableBytes = std::size_t{16} * 1024 * 1024;

/// A line of the kernel's mount table, bytes as they are.
struct MountedFileSystem {
  std::string deviceNumber; // "8:17"
  std::string root;         // what of the file system is mounted: "/" is all of it
  std::string mountPoint;
  std::string type;   // "ext4"
  std::string source; // "/dev/sdb1", or whatever else was said when it was mounted
};

/// A block device as the mount table may name it; a name that is empty is none.
struct BlockDeviceNames {
  std::string number; // "8:17"
  std::string kernelName;
  std::string mappedName; // of a logical volume, say
};

/// Whether the file system lies on the device. Its source is believed only where nothing else can
/// tell: anybody who may mount can write a device's name there.
bool isOn(const MountedFileSystem& mount, const BlockDeviceNames& device);

/// In the order of the table; lines that make no sense are left out.
std::vector<MountedFileSystem> mountedFileSystemsIn(std::string_view mountTable);

} // namespace tamberline::sysfs
