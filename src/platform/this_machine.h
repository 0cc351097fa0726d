#pragma once

#include "acquisition/machine_source.h"
#include "async/main_queue.h"
#include "scanner/port_event_source.h"
#include "scanner/port_scanner.h"

#include <memory>

namespace tamberline {

/// What answers for the machine that the program runs on.
std::shared_ptr<MachineSource> sourceOfThisMachine();

/// What tells of its changes; needs an event loop.
std::shared_ptr<PortEventSource> eventsOfThisMachine();

/// The machine that the program runs on: what reports on it, what tells of changes, its volumes and
/// how they are ejected.
ScannerServices thisMachine(std::shared_ptr<MainQueue> queue);

} // namespace tamberline
