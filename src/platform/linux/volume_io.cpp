#include "platform/volume_io.h"

#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace tamberline {
namespace {

bool setStatusFlags(int descriptor, int added, int removed) {
  const int flags = fcntl(descriptor, F_GETFL);
  return flags >= 0 && fcntl(descriptor, F_SETFL, (flags | added) & ~removed) == 0;
}

} // namespace

/// A volume without a size is one that does not tell it.
std::optional<std::uint64_t> availableBytes(const std::string& folder) {
  std::error_code error;
  const std::filesystem::space_info space = std::filesystem::space(folder, error);
  if (error || space.capacity == 0) {
    return std::nullopt;
  }
  return space.available;
}

/// Asked for only after opening: a file system that refuses it may have made the file by then.
bool bypassCache(int descriptor) {
  return setStatusFlags(descriptor, O_DIRECT, 0);
}

void useCache(int descriptor) {
  setStatusFlags(descriptor, 0, O_DIRECT);
}

bool flushToMedium(int descriptor) {
  return fsync(descriptor) == 0;
}

/// Also after direct reading was allowed: some file systems allow it and read through their cache.
void dropCachedPages(int descriptor) {
  posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
}

} // namespace tamberline
