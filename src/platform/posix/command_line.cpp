#include "platform/posix/command_line.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <getopt.h>

namespace tamberline {
namespace {

/// Also where SIGPIPE is ignored, so that what reads the exit status sees the same everywhere.
void endByBrokenPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
}

bool isAscii(int character) {
  return character >= 0 && character < 0x80;
}

} // namespace

bool printToStandardOutput(std::string_view text, const char* program) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) {
    return true;
  }
  const int error = errno;
  if (error == EPIPE) {
    endByBrokenPipe();
  }
  std::fprintf(stderr, "%s: cannot write to standard output: %s\n", program, std::strerror(error));
  return false;
}

std::string refusedOption(char** arguments) {
  if (isAscii(optopt) && optopt > ' ') { // one letter, perhaps of several in a word
    return {'-', static_cast<char>(optopt)};
  }
  // Of a letter of several bytes the first was refused, and the word is not over.
  const bool isAmidAWord = !isAscii(optopt) && arguments[optind] != nullptr;
  return arguments[isAmidAWord ? optind : optind - 1];
}

} // namespace tamberline
