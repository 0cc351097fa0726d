#include "platform/linux/sysfs/read/udev_properties.h"

#include "base/text.h"
#include "platform/linux/sysfs/read/attribute_files.h"

#include <cstddef>

namespace tamberline::sysfs {

std::string propertyIn(std::string_view lines, std::string_view key) {
  for (std::string_view line : splitNonEmpty(lines, '\n')) {
    if (line.starts_with("E:")) {
      line.remove_prefix(2);
    }
    if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
      return std::string(line.substr(key.size() + 1));
    }
  }
  return {};
}

std::string udevRecord(const std::filesystem::path& udevData, const std::string& node) {
  constexpr std::size_t maxBytes = 65536;
  return readBytes(udevData / node, maxBytes);
}

} // namespace tamberline::sysfs
