#include "macos_stand_in/file_systems.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <sys/mount.h>

namespace {

using tamberline::MacFileSystems;

MacFileSystems fileSystems;

template <std::size_t size>
void copyText(const std::string& text, char (&target)[size]) {
  const std::size_t length = std::min(text.size(), size - 1);
  std::memcpy(target, text.data(), length);
  target[length] = '\0';
}

void describe(const MacFileSystems::Mounted& mounted, struct statfs& entry) {
  entry = {};
  entry.f_bsize = mounted.blockSize;
  entry.f_blocks = mounted.allBlocks;
  entry.f_bavail = mounted.availableBlocks;
  entry.f_fsid.val[0] = mounted.number;
  copyText(mounted.mountPoint, entry.f_mntonname);
  copyText(mounted.device, entry.f_mntfromname);
}

int answerRequest(const std::string& request) {
  fileSystems.requests.push_back(request);
  errno = fileSystems.refusesRequests ? ENOTSUP : 0;
  return fileSystems.refusesRequests ? -1 : 0;
}

std::string requestText(int descriptor, int request) {
  return std::to_string(request) + " on " + std::to_string(descriptor);
}

} // namespace

namespace tamberline {

MacFileSystems& freshMacFileSystems() {
  fileSystems = {};
  return fileSystems;
}

} // namespace tamberline

int fstatfs(int descriptor, struct statfs* buffer) {
  const auto folder = fileSystems.openFolders.find(descriptor);
  for (const MacFileSystems::Mounted& mounted : fileSystems.mounted) {
    if (folder != fileSystems.openFolders.end() && mounted.mountPoint == folder->second) {
      describe(mounted, *buffer);
      return 0;
    }
  }
  errno = EBADF;
  return -1;
}

/// Without a buffer, the number of file systems; otherwise fills the buffer and returns the number
/// of entries.
int getfsstat(struct statfs* buffer, int bufferSize, int mode) {
  if (mode != MNT_NOWAIT || fileSystems.looksThatSucceed == 0) {
    errno = EINVAL;
    return -1;
  }
  --fileSystems.looksThatSucceed;
  const std::size_t room = buffer == nullptr
                               ? fileSystems.mounted.size()
                               : static_cast<std::size_t>(bufferSize) / sizeof(struct statfs);
  const std::size_t count = std::min(room, fileSystems.mounted.size());
  for (std::size_t index = 0; buffer != nullptr && index < count; ++index) {
    describe(fileSystems.mounted[index], buffer[index]);
  }
  std::vector<MacFileSystems::Mounted>& meanwhile = fileSystems.mountedMeanwhile;
  fileSystems.mounted.insert(fileSystems.mounted.end(), meanwhile.begin(), meanwhile.end());
  meanwhile.clear();
  return static_cast<int>(count);
}

int fcntl(int descriptor, int request) {
  return answerRequest(requestText(descriptor, request));
}

int fcntl(int descriptor, int request, int argument) {
  return answerRequest(requestText(descriptor, request) + " with " + std::to_string(argument));
}
