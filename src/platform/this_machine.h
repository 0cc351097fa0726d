#pragma once

#include "acquisition/machine_source.h"
#include "async/main_queue.h"
#include "scanner/port_event_source.h"
#include "scanner/port_scanner.h"

#include <memory>

namespace tamberline {

/// Answers questions about the machine that the program runs on.
std::shared_ptr<MachineSource> sourceOfThisMachine();

/// Reports hardware changes of this machine; needs an event loop.
std::shared_ptr<PortEventSource> eventsOfThisMachine();

/// Everything that the scanner needs for this machine: reports, change events, volumes and
/// ejecting.
ScannerServices thisMachine(std::shared_ptr<MainQueue> queue);

} // namespace tamberline
