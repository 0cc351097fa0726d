// The readers of one kind of device each, which make up a machine. What cannot be read is left out.
#pragma once

#include "platform/linux/sysfs/read/machine_reader.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// The USB devices and the ports of their hubs, without volumes. A device that has not answered yet
/// is there with what the kernel and udev know of it, and one that does not name itself has the
/// names of the database.
UsbTopology readUsb(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbStringCache& texts);

/// The Thunderbolt and USB4 domains: their routers, other computers, and the USB4 ports of hosts.
ThunderboltTopology readThunderbolt(const std::filesystem::path& sysfs);

/// From the kernel's name of a router: "0-301" is behind port 1 of the host of domain 0 and port 3
/// of the router there. Absent for other names.
std::optional<RouterAddress> routerAddressOf(std::string_view deviceName);

/// The USB-C ports with what is plugged into them, by number.
std::map<int, TypecPort> readTypecPorts(const std::filesystem::path& sysfs);

/// Adapters and batteries, by name.
std::vector<PowerSupply> readPowerSupplies(const std::filesystem::path& sysfs);

/// Whether the machine runs on external power: an adapter is online, or there is no battery that it
/// could run on. Reads no more than that takes: the rest can keep firmware busy for milliseconds.
bool isOnExternalPower(const std::filesystem::path& sysfs);

/// Gives each USB device, and each drive behind a Thunderbolt or USB4 enclosure, the mounted
/// volumes on it, also those within encrypted devices and volume groups. A file system on several
/// devices is the first one's. Mount points that are invalid UTF-8, and so could not be handed on
/// as they are, are left out.
void addVolumes(const MachinePaths& paths, Machine& machine);

} // namespace tamberline::sysfs
