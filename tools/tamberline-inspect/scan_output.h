#pragma once

#include "inspect_options.h"
#include "scanner/port_scanner.h"

#include <string>
#include <string_view>

namespace tamberline {

/// False when standard output took less than the whole text.
bool print(std::string_view text);

/// The result of the scanner's last scan as the options want it, with a line break at the end.
/// While watching, a document is one line, and a blank line ends a text.
std::string render(const PortScanner& scanner, const InspectOptions& options);

/// The same on standard output. False after saying on standard error that it could not be written.
bool printScan(const std::string& rendered);

/// What a scan left as its error goes to standard error. Whether there was none.
bool reportScanError(const PortScanner& scanner);

} // namespace tamberline
