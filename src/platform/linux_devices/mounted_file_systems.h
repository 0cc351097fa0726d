#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// A longer table is read in part.
inline constexpr std::size_t mostMountTableBytes = std::size_t{16} * 1024 * 1024;

/// A line of the kernel's mount table, bytes as they are.
struct MountedFileSystem {
  std::string deviceNumber; // "8:17"
  std::string root;         // what of the file system is mounted: "/" is all of it
  std::string mountPoint;
  std::string source; // "/dev/sdb1"
};

/// In the order of the table; lines that make no sense are left out.
std::vector<MountedFileSystem> mountedFileSystemsIn(std::string_view mountTable);

} // namespace tamberline::sysfs
