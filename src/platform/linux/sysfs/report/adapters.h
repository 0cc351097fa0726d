#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <cstdint>
#include <optional>

namespace tamberline::sysfs {

/// The USB-C port whose power a supply reports; absent if the drivers do not provide it.
std::optional<int> typecPortOf(const PowerSupply& supply, const Machine& machine);

/// The adapter that powers the machine: of several, the one with the highest known rating. Null if
/// there is none.
const PowerSupply* adapterInUse(const Machine& machine);

/// The first battery of the machine itself; null if there is none.
const PowerSupply* batteryOf(const Machine& machine);

/// The USB-C port through which power comes in; absent if there is none or it is unknown.
std::optional<int> chargingPort(const Machine& machine);

/// The power that a supply measures; absent unless it measures both voltage and current.
std::optional<double> measuredWatts(const PowerSupply& supply);

/// The max power that the adapter on a supply offers; absent if it is not reported or is
/// contradictory.
std::optional<double> ratedWatts(const PowerSupply& supply);

/// The max power that the adapter in use offers, on its port or on its supply.
std::optional<double> ratingInUse(const Machine& machine);

/// The voltage and the max current that both ends of a USB-C connection agreed on. The actual
/// current is not reported.
struct Contract {
  std::int64_t millivolts = 0;
  std::int64_t milliamperes = 0;
};

/// Absent if nothing was agreed on or the port's driver does not report it.
std::optional<Contract> contractOn(int number, const Machine& machine);

} // namespace tamberline::sysfs
