#include "platform/linux/sysfs/read/attribute_files.h"

#include "base/text.h"
#include "platform/linux/sysfs/read/plain_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace tamberline::sysfs {
namespace {

/// More than any machine has; a larger folder is read only in part.
constexpr std::size_t maxNames = 65536;

} // namespace

std::string readBytes(const std::filesystem::path& file, std::size_t maxBytesRead) {
  // Opening does not block on a pipe without a writer and acquires no controlling terminal.
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) {
    return {};
  }
  std::string content;
  std::array<char, maxAttributeBytes> buffer{};
  while (content.size() < maxBytesRead) {
    const ssize_t count =
        ::read(descriptor, buffer.data(), std::min(buffer.size(), maxBytesRead - content.size()));
    if (count > 0) {
      content.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      break;
    }
  }
  ::close(descriptor);
  return content;
}

std::optional<std::string> readText(const std::filesystem::path& file) {
  std::string text = plainText(readBytes(file, maxAttributeBytes));
  return text.empty() ? std::nullopt : std::optional(std::move(text));
}

std::string readTextOrNothing(const std::filesystem::path& file) {
  return readText(file).value_or("");
}

std::optional<std::int64_t> readNumber(const std::filesystem::path& file) {
  const std::string text = readTextOrNothing(file);
  return parseDecimal(std::string_view(text).substr(0, text.find_first_not_of("-0123456789")));
}

std::string readChoice(const std::filesystem::path& file) {
  const std::string text = readTextOrNothing(file);
  const std::size_t open = text.find('[');
  const std::size_t close = text.find(']');
  if (open != std::string::npos && close != std::string::npos && open < close) {
    return text.substr(open + 1, close - open - 1);
  }
  return text.find(' ') == std::string::npos ? text : std::string();
}

std::optional<std::filesystem::path> linkTarget(const std::filesystem::path& link) {
  std::error_code error;
  std::filesystem::path target = std::filesystem::read_symlink(link, error);
  return error ? std::nullopt : std::optional(std::move(target));
}

std::optional<std::string> linkedName(const std::filesystem::path& link) {
  const auto target = linkTarget(link);
  return target ? std::optional(target->filename().string()) : std::nullopt;
}

bool doesExist(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

std::vector<std::string> namesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end;
       !error && entry != end && names.size() < maxNames; entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

} // namespace tamberline::sysfs
