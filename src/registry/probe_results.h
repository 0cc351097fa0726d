// What each probe finds in its dump of the registry.
#pragma once

#include "model/charging_state.h"
#include "model/power_records.h"
#include "model/usb_host_devices.h"
#include "registry/property_list.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace tamberline {

/// The USB-C and MagSafe ports in a dump of the port controllers, in walk order.
std::vector<HPMPort> portControllersIn(const PropertyList& dump);

/// The measured power of each port in a dump of the battery controller, by 1-based port index. A
/// missing measurement counts as 0. If two elements have the same port, the later one wins.
std::map<std::int64_t, PortPowerOut> portPowerOutIn(const PropertyList& dump);

/// How the computer is powered and what its battery does, from a dump of the battery controller:
/// from the first entry that tells whether there is external power or a battery. What only the port
/// controllers know is not in it.
std::optional<ChargingState> chargingIn(const PropertyList& dump);

/// The current limit in mA of each USB-C port in a dump of the device tree, by 1-based number.
std::map<std::int64_t, std::int64_t> portCurrentLimitsIn(const PropertyList& dump);

/// The little-endian unsigned integer in the first bytes of a data blob, at most 4 of them; absent
/// for an empty blob and for a value of another type.
std::optional<std::int64_t> leInt(PropertyListValue value);

/// The container identifier of each location in a dump of the USB host devices. If two entries have
/// the same location, the first in walk order wins.
ContainerIDs containerIDsIn(const PropertyList& dump);

/// What each device in a dump of the USB host devices can do. If two entries have the same
/// location, the first in walk order wins.
USBAbilities usbAbilitiesIn(const PropertyList& dump);

/// The ports according to the battery controller, and the adapter port that it chose.
struct FedDetails {
  std::vector<FedPortState> ports;
  std::int64_t bestAdapterIndex = 0;
};

/// Reads the first matching entry of a power-source dump that has these data; empty without one.
FedDetails fedDetailsIn(const PropertyList& dump);

} // namespace tamberline
