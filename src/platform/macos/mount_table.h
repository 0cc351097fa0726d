#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// One mounted file system.
struct Mount {
  /// "/dev/disk4s1" for a file system on a medium; whatever else the system calls its source.
  std::string device;
  std::string mountPoint;

  friend bool operator==(const Mount&, const Mount&) = default;
};

/// Everything that is mounted now, in the system's order; empty when the system does not tell. Any
/// thread; waits for no file system.
std::vector<Mount> mountTable();

} // namespace tamberline
