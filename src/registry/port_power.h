#pragma once

#include "model/power_records.h"
#include "registry/property_list.h"

#include <cstdint>
#include <map>
#include <optional>

namespace tamberline {

/// The live power of each port in a dump of the battery controller, by 1-based port index. A
/// measurement that is missing counts as 0; of two elements for one port the later holds.
std::map<std::int64_t, PortPowerOut> portPowerOutIn(const PropertyList& dump);

/// The current limit in mA of each USB-C port in a dump of the device tree, by 1-based number.
std::map<std::int64_t, std::int64_t> portCurrentLimitsIn(const PropertyList& dump);

/// The little-endian unsigned integer of the first bytes of a data blob, at most 4 of them; absent
/// for an empty blob and for a value of another type.
std::optional<std::int64_t> leInt(PropertyListValue value);

} // namespace tamberline
