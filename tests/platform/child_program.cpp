#include "platform/child_program.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tamberline {
namespace {

constexpr int longEnoughForAnyMachine = 30'000; // milliseconds

/// Starts a program that writes all its output to a pipe. QProcess is not used, because the thread
/// sanitizer mistakes its way of starting a program for a fork of this process.
pid_t spawn(std::vector<std::string> words, int output) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) {
    pointers.push_back(word.data());
  }
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
  pid_t process = 0;
  EXPECT_EQ(posix_spawnp(&process, pointers[0], &actions, nullptr, pointers.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  return process;
}

} // namespace

ChildProgram::ChildProgram(const std::vector<std::string>& programAndArguments) {
  std::array<int, 2> ends{};
  EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
  output_ = ends[0];
  std::vector<std::string> words = {"setpriv", "--pdeathsig", "KILL", "--"};
  words.insert(words.end(), programAndArguments.begin(), programAndArguments.end());
  process_ = spawn(std::move(words), ends[1]);
  close(ends[1]);
}

ChildProgram::~ChildProgram() {
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  close(output_);
}

void ChildProgram::waitForLine(std::string_view beginning) {
  const std::string wanted = "\n" + std::string(beginning);
  while (("\n" + text_).find(wanted) == std::string::npos) {
    if (!readMore(longEnoughForAnyMachine)) {
      ADD_FAILURE() << "waited for \"" << beginning << "\", but it wrote: " << text_;
      return;
    }
  }
}

const std::string& ChildProgram::output() {
  while (readMore(0)) {
  }
  return text_;
}

bool ChildProgram::readMore(int patience) {
  pollfd reading = {.fd = output_, .events = POLLIN, .revents = 0};
  if (poll(&reading, 1, patience) <= 0) {
    return false;
  }
  std::array<char, 4096> buffer{};
  const ssize_t count = read(output_, buffer.data(), buffer.size());
  text_.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return count > 0;
}

} // namespace tamberline
