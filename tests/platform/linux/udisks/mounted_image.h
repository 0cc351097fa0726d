#pragma once

#include "support/temporary_folder.h"

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace tamberline {

/// An image of a file system in a folder, mounted below it at a place with a troublesome name. Made
/// and used with private mounts (private_mounts.h), whose end unmounts it.
class MountedImage {
public:
  explicit MountedImage(const TemporaryFolder& folder);

  /// Why it could not be mounted; empty when it is.
  const std::string& problem() const { return problem_; }

  const std::string& mountPoint() const { return mountPoint_; }
  bool isMounted() const;
  /// "/dev/loop0".
  std::string device() const;
  std::uint64_t deviceNumber() const { return deviceNumber_; }
  /// Mounts the same file system in another place, too.
  void mountAlsoAt(const std::string& path) const;

private:
  std::string image_;
  std::string mountPoint_;
  dev_t deviceNumber_ = 0;
  std::string problem_;
};

/// Whether some loop device still has a file of the folder open.
bool hasLoopDevice(const TemporaryFolder& folder);

} // namespace tamberline
