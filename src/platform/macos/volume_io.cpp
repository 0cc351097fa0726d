#include "platform/volume_io.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/param.h>
#include <unistd.h>

namespace tamberline {

/// Not the portable call, whose counts have 32 bits here. A volume without a size is one that does
/// not tell it.
std::optional<std::uint64_t> availableBytes(const std::string& folder) {
  struct statfs status = {};
  if (statfs(folder.c_str(), &status) != 0 || status.f_blocks == 0) {
    return std::nullopt;
  }
  return status.f_bavail * status.f_bsize;
}

bool bypassCache(int descriptor) {
  return fcntl(descriptor, F_NOCACHE, 1) != -1;
}

void useCache(int descriptor) {
  fcntl(descriptor, F_NOCACHE, 0);
}

/// Volumes of a network know only the ordinary way.
bool flushToMedium(int descriptor) {
  return fcntl(descriptor, F_FULLFSYNC) != -1 || fsync(descriptor) == 0;
}

/// Nothing is left to do: every file system here writes past the cache when it is told to.
void dropCachedPages(int /*descriptor*/) {}

} // namespace tamberline
