#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace tamberline::sysfs {

/// The Thunderbolt and USB4 domains: their routers, other computers, and the USB4 ports of hosts.
ThunderboltTopology readThunderbolt(const std::filesystem::path& sysfs);

/// From the kernel's name of a router: "0-301" is behind port 1 of the host of domain 0 and port 3
/// of the router there. Absent for other names.
std::optional<RouterAddress> routerAddressOf(std::string_view deviceName);

} // namespace tamberline::sysfs
