#pragma once

#include "scanner/port_scanner.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline {

/// Everything one scan found and everything the panel shows of it, in the format that
/// docs/inspect-document.md defines.
nlohmann::ordered_json inspectionDocument(const PortScanner& scanner);

} // namespace tamberline
