// A child process that does what its first argument says, for the tests of the process runner.

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

int printArguments(int argc, char** argv) {
  for (int index = 2; index < argc; ++index) {
    std::printf("[%s]", argv[index]);
  }
  return EXIT_SUCCESS;
}

int printMegabytes(std::FILE* stream, int count) {
  static std::array<char, 1'000'000> megabyte{};
  megabyte.fill('x');
  for (int index = 0; index < count; ++index) {
    std::fwrite(megabyte.data(), 1, megabyte.size(), stream);
  }
  return EXIT_SUCCESS;
}

int printOpenDescriptors() {
  for (int descriptor = 0; descriptor < 256; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) != -1) {
      std::printf("%d ", descriptor);
    }
  }
  return EXIT_SUCCESS;
}

int printBrokenPipeTreatment() {
  struct sigaction action = {};
  sigaction(SIGPIPE, nullptr, &action);
  std::fputs(action.sa_handler == SIG_DFL ? "default" : "not default", stdout);
  return EXIT_SUCCESS;
}

int readStandardInput() {
  std::fputs(std::getchar() == EOF ? "nothing to read" : "something to read", stdout);
  return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
  const std::string_view deed = argc > 1 ? argv[1] : "";
  if (deed == "arguments") {
    return printArguments(argc, argv);
  }
  if (deed == "status") {
    std::fputs("before the end", stdout);
    return std::atoi(argv[2]);
  }
  if (deed == "crash") {
    std::fputs("before the crash", stdout);
    std::fflush(stdout);
    std::raise(SIGKILL);
  }
  if (deed == "large") {
    return printMegabytes(stdout, 100);
  }
  if (deed == "endless") {
    std::signal(SIGPIPE, SIG_IGN);
    while (true) {
      printMegabytes(stdout, 1);
    }
  }
  if (deed == "chatty") {
    printMegabytes(stderr, 1);
    std::fputs("done", stdout);
    return EXIT_SUCCESS;
  }
  if (deed == "both") {
    std::fputs("first, ", stdout);
    std::fflush(stdout);
    std::fputs("then an error, ", stderr);
    std::fputs("last", stdout);
    return EXIT_FAILURE;
  }
  if (deed == "bytes") {
    std::fwrite("a\0\xff\xfe\n", 1, 5, stdout);
    return EXIT_SUCCESS;
  }
  if (deed == "descriptors") {
    return printOpenDescriptors();
  }
  if (deed == "broken-pipe") {
    return printBrokenPipeTreatment();
  }
  if (deed == "input") {
    return readStandardInput();
  }
  if (deed == "environment") {
    const char* value = std::getenv(argv[2]);
    std::fputs(value == nullptr ? "not set" : value, stdout);
    return EXIT_SUCCESS;
  }
  return EXIT_FAILURE;
}
