#pragma once

#include "scanner/port_scanner.h"
#include "terminal.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tamberline {

enum class OutputFormat : std::uint8_t { text, document, documentInOneLine };

/// The result of the scanner's last scan with a line break at the end.
std::string render(const PortScanner& scanner, OutputFormat format, const TextStyle& style);

/// The line with the local time above a text while watching: blank lines alone would not show where
/// a text ends.
std::string timeHeading(const TextStyle& style);

/// Writes the text to standard output. Returns false if that fails, after reporting it on standard
/// error.
bool print(std::string_view text);

/// Writes a sentence to standard error, behind the name of the program.
void reportProblem(const std::string& problem);

/// Writes the error of the last scan to standard error. Returns whether there was none.
bool reportScanError(const PortScanner& scanner);

} // namespace tamberline
