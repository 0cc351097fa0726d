#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace tamberline::sysfs {

/// The folder with an entry for each device of a bus ("usb") or class ("typec").
std::filesystem::path busFolder(const std::filesystem::path& sysfs, std::string_view bus);
std::filesystem::path classFolder(const std::filesystem::path& sysfs, std::string_view name);

/// The number of a USB-C port from its kernel name ("port0"); absent for other names and for
/// numbers that are too large for a report.
std::optional<int> typecPortNumber(std::string_view name);

/// The USB-C port that firmware links a device to.
std::optional<int> linkedConnector(const std::filesystem::path& device);

/// The location of a device according to firmware; absent if firmware gives no usable one.
std::optional<PhysicalLocation> physicalLocation(const std::filesystem::path& device);

/// The path of the device that an entry in a class belongs to, such as
/// "devices/platform/USBC000:00"; empty if the entry is not a link.
std::string owningDevice(const std::filesystem::path& classEntry);

} // namespace tamberline::sysfs
