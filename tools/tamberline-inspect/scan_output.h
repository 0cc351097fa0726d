#pragma once

#include "inspect_options.h"
#include "scanner/port_scanner.h"

#include <string>
#include <string_view>

namespace tamberline {

/// The text on standard output. False after saying on standard error that it could not be written.
bool print(std::string_view text);

/// The result of the scanner's last scan as the options want it, with a line break at the end.
/// While watching, a document is one line, and a blank line ends a text.
std::string render(const PortScanner& scanner, const InspectOptions& options);

/// What a scan left as its error goes to standard error. Whether there was none.
bool reportScanError(const PortScanner& scanner);

} // namespace tamberline
