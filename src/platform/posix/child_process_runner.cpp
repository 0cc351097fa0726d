#include "platform/posix/child_process_runner.h"

#include "platform/posix/descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// Not every system's headers declare it.
// NOLINTNEXTLINE(readability-redundant-declaration,cppcoreguidelines-avoid-non-const-global-variables)
extern char** environ;

namespace tamberline {
namespace {

void ignoreBrokenPipes() {
  static const bool areIgnored = [] {
    struct sigaction action = {};
    action.sa_handler = SIG_IGN;
    return sigaction(SIGPIPE, &action, nullptr) == 0;
  }();
  static_cast<void>(areIgnored);
}

/// Where a child's standard error goes.
enum class ErrorOutput : std::uint8_t { nowhere, intoOutput };

class SpawnActions {
public:
  SpawnActions(int standardOutput, ErrorOutput errors) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, standardOutput, STDOUT_FILENO);
    if (errors == ErrorOutput::intoOutput) {
      posix_spawn_file_actions_adddup2(&actions_, standardOutput, STDERR_FILENO);
    } else {
      posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
#ifndef __APPLE__
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
#endif
  }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;
  ~SpawnActions() {
    posix_spawn_file_actions_destroy(&actions_);
  }

  const posix_spawn_file_actions_t* get() const {
    return &actions_;
  }

private:
  posix_spawn_file_actions_t actions_{};
};

/// Restores the default action of SIGPIPE in the child, because this process ignores the signal.
class SpawnAttributes {
public:
  SpawnAttributes() {
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigdefault(&attributes_, &defaults);
    posix_spawnattr_setflags(&attributes_, flags);
  }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }

  const posix_spawnattr_t* get() const { return &attributes_; }

private:
#ifdef __APPLE__
  static constexpr short flags = POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_CLOEXEC_DEFAULT;
#else
  static constexpr short flags = POSIX_SPAWN_SETSIGDEF;
#endif
  posix_spawnattr_t attributes_{};
};

/// Absent if the tool cannot be started.
std::optional<pid_t> spawn(const std::string& executable, const std::vector<std::string>& arguments,
                           int standardOutput, ErrorOutput errors) {
  std::vector<std::string> words = {executable};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  const SpawnActions actions(standardOutput, errors);
  const SpawnAttributes attributes;
  pid_t child = 0;
  const int error = posix_spawn(&child, executable.c_str(), actions.get(), attributes.get(),
                                pointers.data(), environ);
  return error == 0 ? std::optional(child) : std::nullopt;
}

/// Absent if the output is larger than `maxToolOutput`.
std::optional<std::string> readToEnd(int descriptor) {
  std::string content;
  std::array<char, 65536> buffer{};
  while (content.size() <= maxToolOutput) {
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count > 0) {
      content.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return content;
    }
  }
  return std::nullopt;
}

std::optional<int> waitForExitStatus(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) {
      return std::nullopt;
    }
  }
  return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

ToolOutput runToEnd(const std::string& executable, const std::vector<std::string>& arguments,
                    ErrorOutput errors) {
  ignoreBrokenPipes();
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) {
    return {};
  }
  for (const int end : ends) { // children of other code must not inherit them
    fcntl(end, F_SETFD, FD_CLOEXEC);
  }
  const Descriptor readEnd(ends[0]);
  Descriptor writeEnd(ends[1]);
  const std::optional<pid_t> child = spawn(executable, arguments, writeEnd.number(), errors);
  writeEnd.close();
  if (!child) {
    return {};
  }
  std::optional<std::string> output = readToEnd(readEnd.number());
  if (!output) {
    kill(*child, SIGKILL); // it may be blocked on the full pipe
  }
  return {std::move(output).value_or(""), waitForExitStatus(*child)};
}

} // namespace

ToolOutput ChildProcessRunner::run(const std::string& executable,
                                   const std::vector<std::string>& arguments) {
  return runToEnd(executable, arguments, ErrorOutput::nowhere);
}

ToolOutput ChildProcessRunner::runWithErrors(const std::string& executable,
                                             const std::vector<std::string>& arguments) {
  return runToEnd(executable, arguments, ErrorOutput::intoOutput);
}

} // namespace tamberline
