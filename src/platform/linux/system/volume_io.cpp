#include "platform/volume_io.h"

#include <fcntl.h>
#include <fstream>
#include <linux/magic.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace tamberline {
namespace {

bool setStatusFlags(int descriptor, int added, int removed) {
  const int flags = fcntl(descriptor, F_GETFL);
  return flags >= 0 && fcntl(descriptor, F_SETFL, (flags | added) & ~removed) == 0;
}

struct statx statusOf(int descriptor) {
  struct statx status = {};
  if (statx(descriptor, "", AT_EMPTY_PATH | AT_STATX_DONT_SYNC, STATX_MNT_ID, &status) != 0) {
    status = {};
  }
  return status;
}

/// The sysfs folder of the device that holds the file system.
std::string deviceFolder(const struct statx& status) {
  return "/sys/dev/block/" + std::to_string(status.stx_dev_major) + ":" +
         std::to_string(status.stx_dev_minor);
}

/// The kernel numbers all disks that it has seen, so another stick in the same socket has another
/// number. Empty if the kernel does not do so or the file system is not on a single device.
std::string diskSequence(const struct statx& status) {
  for (const char* file : {"/diskseq", "/../diskseq"}) { // a disk's folder contains its partitions
    std::string sequence;
    if (std::getline(std::ifstream(deviceFolder(status) + file), sequence)) {
      return sequence;
    }
  }
  return {};
}

/// Empty if there is none.
std::string pathOfDevice(const struct statx& status) {
  static constexpr std::string_view key = "DEVNAME=";
  std::ifstream properties(deviceFolder(status) + "/uevent");
  for (std::string line; std::getline(properties, line);) {
    if (line.starts_with(key)) {
      return "/dev/" + line.substr(key.size());
    }
  }
  return {};
}

bool isDevice(int descriptor, const struct statx& fileSystem) {
  struct stat status = {};
  return fstat(descriptor, &status) == 0 && S_ISBLK(status.st_mode) &&
         status.st_rdev == makedev(fileSystem.stx_dev_major, fileSystem.stx_dev_minor);
}

/// Absent for file systems, such as those on several devices, whose number is not that of a device.
std::optional<std::uint64_t> deviceNumberOf(const struct statx& status) {
  if (status.stx_dev_major == 0) {
    return std::nullopt;
  }
  return makedev(status.stx_dev_major, status.stx_dev_minor);
}

std::string fileSystemId(int folder) {
  struct statvfs status = {};
  return fstatvfs(folder, &status) == 0 ? std::to_string(status.f_fsid) : "";
}

} // namespace

const int pathOpenFlags = O_PATH;

/// The numbers of mounts and devices are reused. Those of disks are not, and neither are those of
/// file systems that derive them from their UUID.
VolumeIdentity identityOf(int folder, const std::string& /*mountPoint*/) {
  const struct statx status = statusOf(folder);
  const bool reportsMountRoots = (status.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0;
  const bool isRoot = (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
  if (status.stx_mask == 0 || (reportsMountRoots && !isRoot)) {
    return {};
  }
  return {.text = "mount " + std::to_string(status.stx_mnt_id) + " device " +
                  std::to_string(makedev(status.stx_dev_major, status.stx_dev_minor)) + " disk " +
                  diskSequence(status) + " file system " + fileSystemId(folder),
          .deviceNumber = deviceNumberOf(status)};
}

/// A size of zero means that the volume does not report its size.
std::optional<std::uint64_t> availableBytes(int folder) {
  struct statvfs status = {};
  if (fstatvfs(folder, &status) != 0 || status.f_blocks == 0) {
    return std::nullopt;
  }
  return static_cast<std::uint64_t>(status.f_bavail) * status.f_frsize;
}

/// Set after opening: if O_DIRECT is passed to open, a file system that refuses it may already have
/// created the file.
bool bypassCache(int descriptor) {
  return setStatusFlags(descriptor, O_DIRECT, 0);
}

void useCache(int descriptor) {
  setStatusFlags(descriptor, 0, O_DIRECT);
}

bool flushToMedium(int descriptor) {
  return fsync(descriptor) == 0;
}

/// Needed even if the file system has accepted O_DIRECT, because some accept it and still read
/// through their cache.
void dropCachedPages(int descriptor) {
  posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
}

bool isServedByProgram(int descriptor) {
  struct statfs status = {};
  return fstatfs(descriptor, &status) == 0 && status.f_type == FUSE_SUPER_MAGIC;
}

/// Needs a descriptor of the device, which most users may not open. The ioctl that drops more
/// requires root.
bool dropDevicePages(int folder) {
  const struct statx status = statusOf(folder);
  const int device = open(pathOfDevice(status).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (device < 0) {
    return false;
  }
  const bool isDropped = isDevice(device, status) && fsync(device) == 0 &&
                         posix_fadvise(device, 0, 0, POSIX_FADV_DONTNEED) == 0;
  close(device);
  return isDropped;
}

/// The third number in the kernel's statistics counts the sectors read, which have 512 bytes on
/// every device.
std::optional<std::uint64_t> bytesReadFromDevice(int folder) {
  constexpr std::uint64_t sectorBytes = 512;
  std::ifstream counts(deviceFolder(statusOf(folder)) + "/stat");
  std::uint64_t reads = 0;
  std::uint64_t mergedReads = 0;
  std::uint64_t sectors = 0;
  if (!(counts >> reads >> mergedReads >> sectors)) {
    return std::nullopt;
  }
  return sectors * sectorBytes;
}

} // namespace tamberline
