#pragma once

#include <string_view>

namespace tamberline {

/// What the programs for the terminal share.

/// The whole text at once. False after saying on standard error, in the program's name, why it
/// could not be written. When the reader has gone, as `head` goes after its lines, SIGPIPE ends
/// the program, as it ends others.
bool printToStandardOutput(std::string_view text, const char* program);

} // namespace tamberline
