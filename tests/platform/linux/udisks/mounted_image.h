#pragma once

#include "support/temporary_folder.h"

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace tamberline {

/// An image of a file system in a folder, mounted below it at a path with unusual characters.
/// Created and used with private mounts (private_mounts.h), whose end unmounts it.
class MountedImage {
public:
  explicit MountedImage(const TemporaryFolder& folder);

  /// Why it could not be mounted; empty if it is.
  const std::string& problem() const { return problem_; }

  const std::string& mountPoint() const { return mountPoint_; }
  bool isMounted() const;
  /// "/dev/loop0".
  std::string device() const;
  std::uint64_t deviceNumber() const { return deviceNumber_; }
  /// Mounts the same file system at another path as well.
  void mountAlsoAt(const std::string& path) const;

private:
  std::string image_;
  std::string mountPoint_;
  dev_t deviceNumber_ = 0;
  std::string problem_;
};

/// Whether any loop device still has a file of the folder open.
bool hasLoopDevice(const TemporaryFolder& folder);

} // namespace tamberline
