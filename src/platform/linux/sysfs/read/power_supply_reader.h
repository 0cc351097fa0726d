#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <filesystem>
#include <vector>

namespace tamberline::sysfs {

/// Adapters and batteries, by name.
std::vector<PowerSupply> readPowerSupplies(const std::filesystem::path& sysfs);

/// Whether the machine runs on external power: an adapter is online, or there is no battery that it
/// could run on. Reads no more than that takes: the rest can keep firmware busy for milliseconds.
bool isOnExternalPower(const std::filesystem::path& sysfs);

} // namespace tamberline::sysfs
