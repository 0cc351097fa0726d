#include "platform/volume_io.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/param.h>
#include <unistd.h>

namespace tamberline {

const int pathOpenFlags = O_RDONLY;

/// A device that is plugged in later may get the same device number. Only the device name and the
/// kind of file system can distinguish it.
VolumeIdentity identityOf(int folder, const std::string& mountPoint) {
  struct statfs status = {};
  if (fstatfs(folder, &status) != 0 || mountPoint != status.f_mntonname) {
    return {};
  }
  return {.text = std::to_string(status.f_fsid.val[0]) + " " +
                  std::to_string(status.f_fsid.val[1]) + " " + status.f_mntfromname};
}

/// Not the portable statvfs, whose counts have only 32 bits here. A size of zero means that the
/// volume does not report its size.
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

/// Network volumes support only fsync.
bool flushToMedium(int descriptor) {
  return fcntl(descriptor, F_FULLFSYNC) != -1 || fsync(descriptor) == 0;
}

/// Nothing to do: every file system here bypasses the cache on request.
void dropCachedPages(int /*descriptor*/) {}

/// The system does not report it. The user-space drivers that come with the system bypass the cache
/// on request.
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
