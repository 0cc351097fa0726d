#pragma once

#include "model/power_delivery.h"
#include "registry/property_list.h"

#include <vector>

namespace tamberline {

/// More than the standard allows in one message.
inline constexpr std::size_t maxPowerOffers = 16;

inline constexpr std::int64_t maxCredibleVolts = 100;
inline constexpr std::int64_t maxCredibleAmps = 100;
inline constexpr std::int64_t maxCredibleWatts = 10'000;

/// The offers in a list of dictionaries with "Kind" ("fixed", "variable", "battery" or
/// "programmable"), "MinMillivolts", "MaxMillivolts", "Milliamperes" or "Milliwatts", and
/// "IsAgreed". Only the dumps made on Linux have such lists. An offer without its values is left
/// out.
std::vector<PowerOffer> powerOffersIn(PropertyListValue list);

} // namespace tamberline
