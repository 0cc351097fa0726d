#include "platform/macos/mount_table.h"

#include <cstddef>
#include <sys/mount.h>
#include <sys/param.h>

namespace tamberline {
namespace {

/// Uses getfsstat, which fills the caller's buffer: getmntinfo returns a buffer that threads share,
/// and scans run on several threads. getfsstat does not report that a buffer was too small, so the
/// buffer grows until some of it is unused.
std::vector<struct statfs> mountedFileSystems() {
  constexpr std::size_t spare = 8; // for file systems mounted meanwhile
  std::vector<struct statfs> fileSystems;
  int count = getfsstat(nullptr, 0, MNT_NOWAIT);
  while (count >= 0 && static_cast<std::size_t>(count) >= fileSystems.size()) {
    fileSystems.resize(static_cast<std::size_t>(count) + spare);
    const std::size_t size = fileSystems.size() * sizeof(struct statfs);
    count = getfsstat(fileSystems.data(), static_cast<int>(size), MNT_NOWAIT);
  }
  fileSystems.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return fileSystems;
}

} // namespace

std::vector<Mount> mountTable() {
  std::vector<Mount> mounts;
  for (const struct statfs& fileSystem : mountedFileSystems()) {
    mounts.push_back({fileSystem.f_mntfromname, fileSystem.f_mntonname});
  }
  return mounts;
}

} // namespace tamberline
