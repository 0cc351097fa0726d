#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <cstdint>
#include <optional>

namespace tamberline::sysfs {

/// The USB-C port that a power supply is the meter of; absent when the drivers do not say so.
std::optional<int> typecPortOf(const PowerSupply& supply, const Machine& machine);

/// The adapter that powers the machine, the one whose power is known before others; null when none
/// does.
const PowerSupply* adapterInUse(const Machine& machine);

/// The USB-C port through which power comes in; absent when none is known to.
std::optional<int> chargingPort(const Machine& machine);

/// What a supply measures; absent unless it measures voltage and current.
std::optional<double> measuredWatts(const PowerSupply& supply);

/// The most that the adapter on a supply offers; absent unless it tells, and where what it tells
/// contradicts itself.
std::optional<double> ratedWatts(const PowerSupply& supply);

/// What the two ends of a USB-C connection agreed on: a voltage, and the most current at it. How
/// much flows nobody tells.
struct Contract {
  std::int64_t millivolts = 0;
  std::int64_t milliamperes = 0;
};

/// Absent where nothing was agreed on or the port's driver does not tell.
std::optional<Contract> contractOn(int number, const Machine& machine);

} // namespace tamberline::sysfs
