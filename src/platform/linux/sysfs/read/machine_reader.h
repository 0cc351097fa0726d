#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/usb_texts.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tamberline {

/// Where the kernel and udev describe the machine; tests pass their own folders.
struct MachinePaths {
  std::filesystem::path sysfs = "/sys";
  std::filesystem::path mountTable = "/proc/self/mountinfo";
  std::filesystem::path udevData = "/run/udev/data";
};

/// The names of a device in a hardware database; empty if the database does not have them.
struct HardwareNames {
  std::string vendor = {};
  std::string model = {};
};

/// Looks up a device by its hexadecimal vendor and product identifiers, four digits each.
using HardwareDatabase =
    std::function<HardwareNames(std::string_view vendorId, std::string_view productId)>;

} // namespace tamberline

namespace tamberline::sysfs {

/// Reads the whole machine, without root privileges and without waking devices. What cannot be read
/// is left out; devices may come and go meanwhile. `texts` caches the texts of USB devices between
/// calls. Can be called on any thread, one call at a time.
Machine readMachine(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbStringCache& texts);

} // namespace tamberline::sysfs
