#pragma once

#include "inspect_options.h"
#include "scanner/port_scanner.h"
#include "terminal.h"

#include <string>
#include <string_view>

namespace tamberline {

/// The result of the scanner's last scan in the format of the options, with a line break at the
/// end. While watching, a document is one line.
std::string render(const PortScanner& scanner, const InspectOptions& options,
                   const TextStyle& style);

/// The line with the local time above a text while watching: blank lines alone would not show where
/// a text ends.
std::string timeHeading(const TextStyle& style);

/// Writes the text to standard output. Returns false if that fails, after reporting it on standard
/// error.
bool print(std::string_view text);

/// Writes the error of the last scan to standard error. Returns whether there was none.
bool reportScanError(const PortScanner& scanner);

} // namespace tamberline
