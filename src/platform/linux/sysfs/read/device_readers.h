// The readers of the kinds of devices in a machine. What cannot be read is left out.
#pragma once

#include "platform/linux/sysfs/read/machine_reader.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {

/// The USB devices and the ports of their hubs, without volumes. A device that has not answered yet
/// is included with what the kernel and udev have recorded. A device that does not report its names
/// gets those in the database.
UsbTopology readUsb(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbStringCache& texts);

/// The Thunderbolt and USB4 domains: their routers, other computers, and the USB4 ports of hosts.
ThunderboltTopology readThunderbolt(const std::filesystem::path& sysfs);

/// Parses the kernel's name of a router: "0-301" is behind port 1 of the host of domain 0 and port
/// 3 of the router there. Absent for other names.
std::optional<RouterAddress> routerAddressOf(std::string_view deviceName);

/// The USB-C ports by number, with what is plugged into them.
std::map<int, TypecPort> readTypecPorts(const std::filesystem::path& sysfs);

/// Adapters and batteries, by name.
std::vector<PowerSupply> readPowerSupplies(const std::filesystem::path& sysfs);

/// Whether the machine runs on external power: an adapter is online, or there is no battery. Reads
/// only the attributes that this takes, because others can keep firmware busy for milliseconds.
bool isOnExternalPower(const std::filesystem::path& sysfs);

/// Adds the mounted volumes to each USB device and to each drive behind a Thunderbolt or USB4
/// enclosure, including those inside encrypted devices and volume groups. A file system on several
/// devices belongs to the first. Mount points that are invalid UTF-8 are left out, because reports
/// cannot hold them.
void addVolumes(const MachinePaths& paths, Machine& machine);

} // namespace tamberline::sysfs
