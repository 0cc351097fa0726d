#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <filesystem>
#include <map>

namespace tamberline::sysfs {

/// The USB-C ports with what is plugged into them, by number.
std::map<int, TypecPort> readTypecPorts(const std::filesystem::path& sysfs);

} // namespace tamberline::sysfs
