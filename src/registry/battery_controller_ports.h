#pragma once

#include "model/power_records.h"
#include "registry/property_list.h"

#include <cstdint>
#include <vector>

namespace tamberline {

/// The battery controller's own view of the ports, and which adapter port it chose.
struct FedDetails {
  std::vector<FedPortState> ports;
  std::int64_t bestAdapterIndex = 0;
};

/// Reads the first matching entry of a power-source dump that has such a view; empty without one.
FedDetails fedDetailsIn(const PropertyList& dump);

} // namespace tamberline
