#include "platform/posix/posix_volume_files.h"

#include "platform/posix/descriptor.h"
#include "platform/volume_io.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tamberline {
namespace {

constexpr mode_t newFileMode = 0644;
/// Nothing waits on a pipe that took the name, no terminal is taken over, no child inherits.
constexpr int safeOpening = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;

/// A relative mount point could only name something that is no volume.
bool isUsable(const std::string& path) {
  return path.starts_with('/') && path.find('\0') == std::string::npos;
}

/// Writing to a file that has another name too would change what somebody keeps elsewhere.
bool isFileOfItsOwn(const struct stat& status) {
  return S_ISREG(status.st_mode) && status.st_nlink == 1;
}

bool isFileOfItsOwn(const Descriptor& file) {
  struct stat status = {};
  return fstat(file.number(), &status) == 0 && isFileOfItsOwn(status);
}

enum class Occupant : std::uint8_t { none, fileOfItsOwn, somethingElse };

Occupant occupantOf(const std::string& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0) {
    return errno == ENOENT ? Occupant::none : Occupant::somethingElse;
  }
  return isFileOfItsOwn(status) ? Occupant::fileOfItsOwn : Occupant::somethingElse;
}

class PosixVolumeFile final : public VolumeFile {
public:
  explicit PosixVolumeFile(Descriptor file)
      : file_(std::move(file)), isPastCache_(bypassCache(file_.number())) {}

  std::int64_t write(std::span<const std::byte> bytes) override {
    return retried([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
  }

  std::int64_t read(std::span<std::byte> buffer) override {
    return retried([&] { return ::read(file_.number(), buffer.data(), buffer.size()); });
  }

  bool flushToMedium() override { return tamberline::flushToMedium(file_.number()); }

private:
  /// Past the cache only whole blocks can be moved, and some file systems allow it and refuse it
  /// later.
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
  bool isPastCache_;
};

} // namespace

std::optional<std::uint64_t> PosixVolumeFiles::freeBytes(const std::string& mountPoint) {
  return availableBytes(mountPoint);
}

/// Never opens what is there, however quickly it got there: what it writes to is its own making.
std::unique_ptr<VolumeFile> PosixVolumeFiles::create(const std::string& path) {
  if (!isUsable(path)) {
    return nullptr;
  }
  remove(path);
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | safeOpening, newFileMode));
  return file.isOpen() ? std::make_unique<PosixVolumeFile>(std::move(file)) : nullptr;
}

std::unique_ptr<VolumeFile> PosixVolumeFiles::open(const std::string& path) {
  if (!isUsable(path)) {
    return nullptr;
  }
  Descriptor file(::open(path.c_str(), O_RDONLY | safeOpening));
  if (!file.isOpen() || !isFileOfItsOwn(file)) {
    return nullptr;
  }
  dropCachedPages(file.number());
  return std::make_unique<PosixVolumeFile>(std::move(file));
}

void PosixVolumeFiles::remove(const std::string& path) {
  if (isUsable(path) && occupantOf(path) == Occupant::fileOfItsOwn) {
    unlink(path.c_str());
  }
}

} // namespace tamberline
