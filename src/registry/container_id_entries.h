#pragma once

#include "model/container_ids.h"
#include "registry/property_list.h"

namespace tamberline {

/// The container identifier of each location in a dump of the USB host devices; of two entries for
/// one location the first in walk order holds.
ContainerIDs containerIDsIn(const PropertyList& dump);

} // namespace tamberline
