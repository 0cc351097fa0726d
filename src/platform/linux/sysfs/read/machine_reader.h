#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/usb_texts.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tamberline {

/// Where the kernel and udev describe the machine; a test puts folders of its own in their place.
struct MachinePaths {
  std::filesystem::path sysfs = "/sys";
  std::filesystem::path mountTable = "/proc/self/mountinfo";
  std::filesystem::path udevData = "/run/udev/data";
};

/// What a database of hardware calls a device that does not name itself; empty where it knows
/// nothing.
struct HardwareNames {
  std::string vendor = {};
  std::string model = {};
};

/// Asked by hexadecimal vendor and product, four digits each.
using HardwareDatabase =
    std::function<HardwareNames(std::string_view vendorId, std::string_view productId)>;

} // namespace tamberline

namespace tamberline::sysfs {

/// Reads everything, without being root and without waking anything. What cannot be read is left
/// out; devices may come and go meanwhile. `texts` has what USB devices told of themselves before.
/// Any thread, one call at a time.
Machine readMachine(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbStringCache& texts);

} // namespace tamberline::sysfs
