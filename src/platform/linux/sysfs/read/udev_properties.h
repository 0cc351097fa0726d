#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// The value in a line "KEY=value", which may start with "E:" as in udev's records. Empty if there
/// is none.
std::string propertyIn(std::string_view lines, std::string_view key);

/// udev's record of a device node, such as "b8:17"; empty if there is none.
std::string udevRecord(const std::filesystem::path& udevData, const std::string& node);

} // namespace tamberline::sysfs
