#pragma once

#include <filesystem>

namespace tamberline {

/// Where the kernel and udev describe the machine; a test puts folders of its own in their place.
struct MachinePaths {
  std::filesystem::path sysfs = "/sys";
  std::filesystem::path mountTable = "/proc/self/mountinfo";
  std::filesystem::path udevData = "/run/udev/data";
};

} // namespace tamberline
