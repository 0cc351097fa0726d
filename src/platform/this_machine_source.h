#pragma once

#include "acquisition/machine_source.h"
#include "scanner/port_event_source.h"

#include <memory>

namespace tamberline {

/// What answers for the machine that the program runs on.
std::shared_ptr<MachineSource> sourceOfThisMachine();

/// What tells of its changes; needs an event loop.
std::shared_ptr<PortEventSource> eventsOfThisMachine();

} // namespace tamberline
