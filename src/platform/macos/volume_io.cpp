#include "platform/volume_io.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/param.h>
#include <unistd.h>

namespace tamberline {

const int pathOpenFlags = O_RDONLY;

/// A device that is plugged in again may have the number of the one before; with its name and the
/// kind of file system that is all that can be told apart.
VolumeIdentity identityOf(int folder, const std::string& mountPoint) {
  struct statfs status = {};
  if (fstatfs(folder, &status) != 0 || mountPoint != status.f_mntonname) {
    return {};
  }
  return {.text = std::to_string(status.f_fsid.val[0]) + " " +
                  std::to_string(status.f_fsid.val[1]) + " " + status.f_mntfromname};
}

/// Not the portable call, whose counts have 32 bits here. A volume without a size is one that does
/// not tell it.
std::optional<std::uint64_t> availableBytes(int folder) {
  struct statfs status = {};
  if (fstatfs(folder, &status) != 0 || status.f_blocks == 0) {
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

/// Nothing tells; the drivers that come with the system ask for no cache where they are asked.
bool isServedByProgram(int /*descriptor*/) {
  return false;
}

bool dropDevicePages(int /*folder*/) {
  return false;
}

std::optional<std::uint64_t> bytesReadFromDevice(int /*folder*/) {
  return std::nullopt;
}

} // namespace tamberline
