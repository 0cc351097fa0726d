#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// The value of a line "KEY=value"; of one that udev wrote, with "E:" in front. Empty when there is
/// none.
std::string propertyIn(std::string_view lines, std::string_view key);

/// What udev wrote down of a device node, such as "b8:17"; empty when it wrote nothing.
std::string udevRecord(const std::filesystem::path& udevData, const std::string& node);

} // namespace tamberline::sysfs
