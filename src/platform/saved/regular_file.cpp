#include "platform/saved/regular_file.h"

#include "platform/posix/descriptor.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tamberline {
namespace {

bool isRegularFile(const Descriptor& file) {
  struct stat status = {};
  return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

std::optional<std::string> readRegularFile(const std::filesystem::path& path,
                                           std::size_t mostBytes) {
  // Nothing waits for the other end of a pipe, and no terminal is taken over.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.isOpen() || !isRegularFile(file)) {
    return std::nullopt;
  }
  std::string content;
  std::array<char, 65536> buffer{};
  while (content.size() <= mostBytes) {
    const ssize_t count = read(file.number(), buffer.data(), buffer.size());
    if (count > 0) {
      content.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
      return content;
    } else if (errno != EINTR) {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

} // namespace tamberline
