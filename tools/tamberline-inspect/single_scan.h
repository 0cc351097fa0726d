#pragma once

#include "acquisition/machine_source.h"
#include "scanner/port_scanner.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace tamberline {

/// The machine whose reports are in a folder, or this one.
std::shared_ptr<MachineSource> machineOf(const std::optional<std::filesystem::path>& folder);

/// The changes of that folder, or of this machine; needs an event loop.
std::shared_ptr<PortEventSource> eventsOf(const std::optional<std::filesystem::path>& folder);

/// Scans a machine once and returns when that is done. Needs an application object that has not run
/// its event loop, or has ended it.
std::shared_ptr<PortScanner> scanOnce(std::shared_ptr<MachineSource> machine);

} // namespace tamberline
