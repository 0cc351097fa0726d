#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// One mounted file system.
struct Mount {
  /// What the system calls its source: "/dev/disk4s1", "//server/share", "devfs".
  std::string device;
  std::string mountPoint;

  friend bool operator==(const Mount&, const Mount&) = default;
};

/// Everything that is mounted now, in the system's order; empty when the system does not tell. Any
/// thread; waits for no file system.
std::vector<Mount> mountTable();

} // namespace tamberline
