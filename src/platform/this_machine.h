#pragma once

#include "async/main_queue.h"
#include "scanner/port_scanner.h"

#include <memory>

namespace tamberline {

/// The machine that the program runs on: what reports on it, what tells of changes, its volumes and
/// how they are ejected.
ScannerOutside thisMachine(std::shared_ptr<MainQueue> queue);

} // namespace tamberline
