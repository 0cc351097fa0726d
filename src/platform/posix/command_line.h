#pragma once

#include <string_view>

namespace tamberline {

/// Helpers shared by the command-line programs.

/// Writes the whole text at once. On failure, prints the reason to standard error, prefixed with
/// the name `program`, and returns false. If the reader has closed the pipe, as `head` does after
/// its last line, SIGPIPE ends the program, as it ends other programs.
bool printToStandardOutput(std::string_view text, const char* program);

} // namespace tamberline
