#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// One mounted file system.
struct Mount {
  /// The system's name for its source: "/dev/disk4s1", "//server/share", "devfs".
  std::string device;
  std::string mountPoint;

  friend bool operator==(const Mount&, const Mount&) = default;
};

/// All mounted file systems, in the system's order; empty if the system does not report them. Can
/// be called on any thread; does not block on any file system.
std::vector<Mount> mountTable();

} // namespace tamberline
