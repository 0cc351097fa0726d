#include "platform/posix/command_line.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace tamberline {
namespace {

/// Works even if SIGPIPE is ignored, so that the exit status is the same in either case.
void endByBrokenPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
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

} // namespace tamberline
