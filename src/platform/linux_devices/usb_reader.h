#pragma once

#include "platform/linux_devices/hardware_names.h"
#include "platform/linux_devices/machine.h"

#include <filesystem>

namespace tamberline::sysfs {

/// The USB devices and the ports of their hubs, without volumes. A device that does not name itself
/// has the names of the database.
UsbTopology readUsb(const std::filesystem::path& sysfs, const HardwareDatabase& database);

/// The container identifier in what a device describes of its capabilities (its BOS descriptor),
/// as a UUID; absent when there is none, and for one of zeros only, which names no container.
std::optional<std::string> containerIdIn(std::string_view descriptors);

} // namespace tamberline::sysfs
