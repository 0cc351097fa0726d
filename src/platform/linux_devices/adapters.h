#pragma once

#include "platform/linux_devices/machine.h"

#include <optional>

namespace tamberline::sysfs {

/// The USB-C port that a power supply is the meter of; absent when the drivers do not say so.
std::optional<int> typecPortOf(const PowerSupply& supply, const Machine& machine);

/// The adapter that powers the machine, the one whose power is known before others; null when none
/// does.
const PowerSupply* adapterInUse(const Machine& machine);

/// The USB-C port through which power comes in; absent when none is known to.
std::optional<int> chargingPort(const Machine& machine);

/// Both absent unless the supply tells of voltage and current.
std::optional<double> wattsNow(const PowerSupply& supply);
std::optional<double> mostWatts(const PowerSupply& supply);

} // namespace tamberline::sysfs
