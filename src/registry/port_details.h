#pragma once

#include "model/power_delivery.h"
#include "registry/property_list.h"

namespace tamberline {

/// What an entry of a port controller has in keys of our own, which begin with "Tamberline". Only
/// the dumps made on Linux have them.
PortDetails portDetailsIn(PropertyListValue entry);

} // namespace tamberline
