#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline::sysfs {

/// Adds how the machine is powered and what its battery does to the entry of its battery
/// controller, under a Mac's keys as far as there are any. Adds nothing if the machine reports
/// neither adapters nor batteries.
void addCharging(const Machine& machine, nlohmann::json& entry);

} // namespace tamberline::sysfs
