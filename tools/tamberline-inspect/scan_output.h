#pragma once

#include "inspect_options.h"
#include "scanner/port_scanner.h"
#include "terminal.h"

#include <string>
#include <string_view>

namespace tamberline {

/// The result of the scanner's last scan as the options want it, with a line break at the end.
/// While watching, a document is one line.
std::string render(const PortScanner& scanner, const InspectOptions& options,
                   const TextStyle& style);

/// The line above a text while watching, which has the local time: blank lines alone would not
/// tell where one text ends.
std::string timeLine(const TextStyle& style);

/// The text on standard output. False after saying on standard error that it could not be written.
bool print(std::string_view text);

/// What a scan left as its error goes to standard error. Whether there was none.
bool reportScanError(const PortScanner& scanner);

} // namespace tamberline
