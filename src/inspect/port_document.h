#pragma once

#include "inspect/record_documents.h"
#include "model/power_records.h"
#include "model/thunderbolt_records.h"

#include <vector>

namespace tamberline {

/// What else is known of each port: its sockets, what its link truly carries, a partner that is no
/// device, and the power that was agreed on.
Document describePorts(const std::vector<ThunderboltBus>& buses,
                       const std::vector<HPMPort>& controllers);

} // namespace tamberline
