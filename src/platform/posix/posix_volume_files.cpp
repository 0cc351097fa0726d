#include "platform/posix/posix_volume_files.h"

#include "platform/posix/descriptor.h"
#include "platform/volume_io.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace tamberline {
namespace {

constexpr mode_t newFileMode = 0644;
/// If something else has taken the name, opening does not block on a pipe, follows no link and
/// acquires no controlling terminal. Child processes do not inherit the descriptor.
constexpr int safeOpening = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;

/// A relative path cannot be a mount point.
bool isUsable(const std::string& path) {
  return path.starts_with('/') && path.find('\0') == std::string::npos;
}

/// A file with several hard links is excluded: writing to it would change data that is also stored
/// under another name.
bool isUnlinkedRegularFile(const struct stat& status) {
  return S_ISREG(status.st_mode) && status.st_nlink == 1;
}

/// Absent if the status of the open file cannot be read.
std::optional<struct stat> statusOf(const Descriptor& file) {
  struct stat status = {};
  return fstat(file.number(), &status) == 0 ? std::optional(status) : std::nullopt;
}

bool isSameFile(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

/// The user's quota may be exhausted before the volume is full.
bool isSpaceMissing(int error) {
  return error == ENOSPC || error == EDQUOT;
}

bool isReadOnly(const Descriptor& folder) {
  struct statvfs status = {};
  return fstatvfs(folder.number(), &status) == 0 && (status.f_flag & ST_RDONLY) != 0;
}

/// The reason why a file could not be created, from the error code.
VolumeFolder::CreateFailure createFailure(int error, const Descriptor& folder) {
  const bool isPermissionDenied = error == EACCES || error == EPERM;
  if (isPermissionDenied && !isReadOnly(folder)) {
    return VolumeFolder::CreateFailure::notPermitted;
  }
  return isSpaceMissing(error) ? VolumeFolder::CreateFailure::noRoom
                               : VolumeFolder::CreateFailure::readOnly;
}

/// Measures how much has been read from a device since construction, for file systems that a
/// program serves. The program reads the device through the system's cache, so it may have answered
/// from there.
class DeviceReads {
public:
  explicit DeviceReads(const Descriptor& folder)
      : folder_(fcntl(folder.number(), F_DUPFD_CLOEXEC, 0)),
        before_(bytesReadFromDevice(folder_.number())) {}

  /// The count includes reads by other programs, which cannot be distinguished.
  bool cover(std::int64_t bytes) const {
    const std::optional<std::uint64_t> now = bytesReadFromDevice(folder_.number());
    return before_ && now && *now - *before_ >= static_cast<std::uint64_t>(bytes);
  }

private:
  Descriptor folder_;
  std::optional<std::uint64_t> before_;
};

class PosixVolumeFile final : public VolumeFile {
public:
  /// `deviceReads` is set if it must be verified that reads reach the device.
  explicit PosixVolumeFile(Descriptor file, std::optional<DeviceReads> deviceReads = std::nullopt)
      : file_(std::move(file)), deviceReads_(std::move(deviceReads)),
        isPastCache_(bypassCache(file_.number())) {}

  std::int64_t write(std::span<const std::byte> bytes) override {
    const std::int64_t count =
        retried([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
    return count < 0 && isSpaceMissing(errno) ? noSpaceLeft : count;
  }

  std::int64_t read(std::span<std::byte> buffer) override {
    const std::int64_t count =
        retried([&] { return ::read(file_.number(), buffer.data(), buffer.size()); });
    bytesRead_ += std::max<std::int64_t>(count, 0);
    return count;
  }

  bool flushToMedium() override { return tamberline::flushToMedium(file_.number()); }

  bool hasReadMedium() const override { return !deviceReads_ || deviceReads_->cover(bytesRead_); }

private:
  /// Falls back to the cache: only whole blocks can bypass it, and some file systems accept
  /// bypassing at first and refuse it later.
  template <typename Transfer>
  std::int64_t retried(Transfer transfer) {
    while (true) {
      const ssize_t count = transfer();
      if (count < 0 && errno == EINVAL && isPastCache_) {
        useCache(file_.number());
        isPastCache_ = false;
      } else if (count >= 0 || errno != EINTR) {
        return count;
      }
    }
  }

  Descriptor file_;
  std::optional<DeviceReads> deviceReads_;
  std::int64_t bytesRead_ = 0;
  bool isPastCache_;
};

class PosixVolumeFolder final : public VolumeFolder {
public:
  PosixVolumeFolder(Descriptor folder, const std::string& mountPoint)
      : folder_(std::move(folder)), identity_(identityOf(folder_.number(), mountPoint)),
        isServedByProgram_(isServedByProgram(folder_.number())) {}

  VolumeIdentity identity() const override { return identity_; }
  std::optional<std::uint64_t> freeBytes() const override {
    return availableBytes(folder_.number());
  }
  bool canReadMedium() const override {
    return !isServedByProgram_ || dropDevicePages(folder_.number());
  }
  Created create(const std::string& name) override;
  std::unique_ptr<VolumeFile> open(const std::string& name) override;
  void remove(const std::string& name) override;

private:
  Descriptor openAt(const std::string& name, int flags) const {
    return Descriptor(openat(folder_.number(), name.c_str(), flags | safeOpening, newFileMode));
  }

  Descriptor folder_;
  VolumeIdentity identity_;
  bool isServedByProgram_;
  /// Keeps the inode of the created file in use: once a file is closed, some file systems reuse its
  /// inode number or give the file another one.
  std::optional<Descriptor> madeFile_;
};

/// Never opens an existing file, even one that appears at the last moment: it writes only to a file
/// that it has created.
VolumeFolder::Created PosixVolumeFolder::create(const std::string& name) {
  remove(name);
  Descriptor file = openAt(name, O_WRONLY | O_CREAT | O_EXCL);
  if (!file.isOpen()) {
    return createFailure(errno, folder_);
  }
  madeFile_.emplace(openAt(name, pathOpenFlags));
  return std::make_unique<PosixVolumeFile>(std::move(file));
}

std::unique_ptr<VolumeFile> PosixVolumeFolder::open(const std::string& name) {
  Descriptor file = openAt(name, O_RDONLY);
  const std::optional<struct stat> status = statusOf(file);
  const std::optional<struct stat> made = madeFile_ ? statusOf(*madeFile_) : std::nullopt;
  if (!status || !made || !isUnlinkedRegularFile(*status) || !isSameFile(*status, *made)) {
    return nullptr;
  }
  dropCachedPages(file.number());
  if (!isServedByProgram_) {
    return std::make_unique<PosixVolumeFile>(std::move(file));
  }
  dropDevicePages(folder_.number());
  return std::make_unique<PosixVolumeFile>(std::move(file), DeviceReads(folder_));
}

void PosixVolumeFolder::remove(const std::string& name) {
  struct stat status = {};
  if (fstatat(folder_.number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
      isUnlinkedRegularFile(status)) {
    unlinkat(folder_.number(), name.c_str(), 0);
  }
}

} // namespace

std::unique_ptr<VolumeFolder> PosixVolumeFiles::openFolder(const std::string& mountPoint) {
  if (!isUsable(mountPoint)) {
    return nullptr;
  }
  Descriptor folder(
      ::open(mountPoint.c_str(), pathOpenFlags | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  return folder.isOpen() ? std::make_unique<PosixVolumeFolder>(std::move(folder), mountPoint)
                         : nullptr;
}

} // namespace tamberline
