#pragma once

#include "acquisition/tool_runner.h"
#include "scanner/port_event_source.h"

#include <memory>

namespace tamberline {

/// What reports on the machine that the program runs on: answers for the report tool and the
/// registry tool, whether or not the system has such tools.
std::shared_ptr<ToolRunner> toolsOfThisMachine();

/// What tells of its changes; needs an event loop.
std::shared_ptr<PortEventSource> eventsOfThisMachine();

} // namespace tamberline
