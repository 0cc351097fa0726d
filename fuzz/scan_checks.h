#pragma once

#include "acquisition/tool_runner.h"

#include <memory>

namespace tamberline {

/// Scans what the tools tell, from the reports to the document and the panel, and once more: a scan
/// ends, identifiers are unique, the document is sound, nothing that the panel says disturbs a
/// terminal, and the same machine shows the same.
void requireSoundScans(std::shared_ptr<ToolRunner> tools);

} // namespace tamberline
