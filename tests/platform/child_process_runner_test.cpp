#include "platform/posix/child_process_runner.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tamberline {
namespace {

ToolOutput runTool(const std::vector<std::string>& arguments) {
  return ChildProcessRunner().run(TROUBLESOME_TOOL, arguments);
}

TEST(ChildProcessRunner, ReturnsWhatTheToolPrintsAndItsStatus) {
  const ToolOutput output = runTool({"status", "0"});
  EXPECT_EQ(output.standardOutput, "before the end");
  EXPECT_EQ(output.exitStatus, 0);
}

TEST(ChildProcessRunner, PassesArgumentsUnchanged) {
  const ToolOutput output =
      runTool({"arguments", "", "two words", "\"quoted\"", "-dash", "$HOME", "üñí", "a\nb"});
  EXPECT_EQ(output.standardOutput, "[][two words][\"quoted\"][-dash][$HOME][üñí][a\nb]");
}

TEST(ChildProcessRunner, ReturnsTheOutputOfAToolThatFails) {
  const ToolOutput output = runTool({"status", "3"});
  EXPECT_EQ(output.standardOutput, "before the end");
  EXPECT_EQ(output.exitStatus, 3);
}

TEST(ChildProcessRunner, ReturnsTheOutputOfAToolThatDiesWithoutAStatus) {
  const ToolOutput output = runTool({"crash"});
  EXPECT_EQ(output.standardOutput, "before the crash");
  EXPECT_EQ(output.exitStatus, std::nullopt);
}

TEST(ChildProcessRunner, ReturnsNothingForAToolThatIsMissingOrNotExecutable) {
  for (const std::string executable : {"/nowhere/tool", "/etc/passwd", "/", ""}) {
    SCOPED_TRACE(executable);
    const ToolOutput output = ChildProcessRunner().run(executable, {"-json"});
    EXPECT_EQ(output.standardOutput, "");
    EXPECT_EQ(output.exitStatus, std::nullopt);
  }
}

TEST(ChildProcessRunner, TakesAHundredMegabytes) {
  const ToolOutput output = runTool({"large"});
  EXPECT_EQ(output.standardOutput.size(), 100'000'000U);
  EXPECT_EQ(output.exitStatus, 0);
}

TEST(ChildProcessRunner, KillsAToolWithEndlessOutput) {
  const ToolOutput output = runTool({"endless"});
  EXPECT_EQ(output.standardOutput, "");
  EXPECT_EQ(output.exitStatus, std::nullopt);
}

TEST(ChildProcessRunner, LeavesStandardErrorOutUnlessAskedForIt) {
  EXPECT_EQ(runTool({"both"}).standardOutput, "first, last");
  const ToolOutput output = ChildProcessRunner().runWithErrors(TROUBLESOME_TOOL, {"both"});
  EXPECT_EQ(output.standardOutput, "first, then an error, last");
  EXPECT_EQ(output.exitStatus, 1);
}

TEST(ChildProcessRunner, IsNotHeldUpByAToolThatFillsItsStandardError) {
  const ToolOutput output = runTool({"chatty"});
  EXPECT_EQ(output.standardOutput, "done");
}

TEST(ChildProcessRunner, KeepsBinaryOutput) {
  EXPECT_EQ(runTool({"bytes"}).standardOutput, std::string("a\0\xff\xfe\n", 5));
}

TEST(ChildProcessRunner, PassesOnlyTheStandardDescriptorsToTheTool) {
  const int inheritable = open("/dev/null", O_RDONLY); // NOLINT: left without O_CLOEXEC on purpose
  ASSERT_GE(inheritable, 3);
  EXPECT_EQ(runTool({"descriptors"}).standardOutput, "0 1 2 ");
  close(inheritable);
}

TEST(ChildProcessRunner, GivesTheToolNothingToRead) {
  EXPECT_EQ(runTool({"input"}).standardOutput, "nothing to read");
}

TEST(ChildProcessRunner, PassesTheEnvironmentToTheTool) {
  setenv("TAMBERLINE_TEST_VALUE", "handed down", 1);
  EXPECT_EQ(runTool({"environment", "TAMBERLINE_TEST_VALUE"}).standardOutput, "handed down");
  unsetenv("TAMBERLINE_TEST_VALUE");
}

TEST(ChildProcessRunner, IgnoresBrokenPipesItselfButLeavesTheToolTheDefault) {
  EXPECT_EQ(runTool({"broken-pipe"}).standardOutput, "default");
  struct sigaction action = {};
  sigaction(SIGPIPE, nullptr, &action);
  EXPECT_EQ(action.sa_handler, SIG_IGN);
}

TEST(ChildProcessRunner, LeavesNoDescriptorAndNoChildBehind) {
  runTool({"status", "0"});
  const int before = open("/dev/null", O_RDONLY | O_CLOEXEC);
  close(before);
  for (int run = 0; run < 100; ++run) {
    runTool({"status", "0"});
    runTool({"crash"});
    ChildProcessRunner().run("/nowhere/tool", {});
  }
  const int after = open("/dev/null", O_RDONLY | O_CLOEXEC);
  close(after);
  EXPECT_EQ(before, after);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST(ChildProcessRunner, RunsManyToolsAtOnce) {
  std::vector<std::thread> threads;
  std::vector<std::string> outputs(8);
  threads.reserve(outputs.size());
  for (std::size_t index = 0; index < outputs.size(); ++index) {
    threads.emplace_back([&outputs, index] {
      outputs[index] = runTool({"arguments", std::to_string(index)}).standardOutput;
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (std::size_t index = 0; index < outputs.size(); ++index) {
    EXPECT_EQ(outputs[index], "[" + std::to_string(index) + "]");
  }
}

} // namespace
} // namespace tamberline
