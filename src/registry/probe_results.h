// What each probe finds in its dump of the registry.
#pragma once

#include "model/container_ids.h"
#include "model/power_records.h"
#include "registry/property_list.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace tamberline {

/// The USB-C and MagSafe ports in a dump of the port controllers, in walk order.
std::vector<HPMPort> portControllersIn(const PropertyList& dump);

/// The live power of each port in a dump of the battery controller, by 1-based port index. A
/// measurement that is missing counts as 0; of two elements for one port the later holds.
std::map<std::int64_t, PortPowerOut> portPowerOutIn(const PropertyList& dump);

/// The current limit in mA of each USB-C port in a dump of the device tree, by 1-based number.
std::map<std::int64_t, std::int64_t> portCurrentLimitsIn(const PropertyList& dump);

/// The little-endian unsigned integer of the first bytes of a data blob, at most 4 of them; absent
/// for an empty blob and for a value of another type.
std::optional<std::int64_t> leInt(PropertyListValue value);

/// The container identifier of each location in a dump of the USB host devices; of two entries for
/// one location the first in walk order holds.
ContainerIDs containerIDsIn(const PropertyList& dump);

/// The battery controller's own view of the ports, and which adapter port it chose.
struct FedDetails {
  std::vector<FedPortState> ports;
  std::int64_t bestAdapterIndex = 0;
};

/// Reads the first matching entry of a power-source dump that has such a view; empty without one.
FedDetails fedDetailsIn(const PropertyList& dump);

} // namespace tamberline
