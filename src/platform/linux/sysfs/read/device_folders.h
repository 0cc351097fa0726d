#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace tamberline::sysfs {

/// The folder with an entry for each device of a bus ("usb") or class ("typec").
std::filesystem::path busFolder(const std::filesystem::path& sysfs, std::string_view bus);
std::filesystem::path classFolder(const std::filesystem::path& sysfs, std::string_view name);

/// The number of a USB-C port from the name that the kernel gives it ("port0"); absent for other
/// names and for numbers that no report could hold.
std::optional<int> typecPortNumber(std::string_view name);

/// The USB-C port that firmware ties a device to.
std::optional<int> linkedConnector(const std::filesystem::path& device);

/// Where firmware says that a device is; absent when it says nothing of use.
std::optional<PhysicalLocation> physicalLocation(const std::filesystem::path& device);

/// Of a device with an entry in a class, the path of the device that it belongs to, such as
/// "devices/platform/USBC000:00"; empty when the entry is no link.
std::string owningDevice(const std::filesystem::path& classEntry);

} // namespace tamberline::sysfs
