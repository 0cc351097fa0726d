#pragma once

#include "model/power_records.h"
#include "registry/property_list.h"

#include <vector>

namespace tamberline {

/// The USB-C and MagSafe ports in a dump of the port controllers, in walk order.
std::vector<HPMPort> portControllersIn(const PropertyList& dump);

} // namespace tamberline
