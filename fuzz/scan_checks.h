#pragma once

#include "acquisition/machine_source.h"

#include <memory>

namespace tamberline {

/// Scans a machine, from the reports to the document and the panel, and once more: a scan
/// ends, identifiers are unique, the document is sound, nothing that the panel says disturbs a
/// terminal, and the same machine shows the same.
void requireSoundScans(std::shared_ptr<MachineSource> machine);

} // namespace tamberline
