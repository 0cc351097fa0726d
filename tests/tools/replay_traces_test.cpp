#include "platform/posix/child_process_runner.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> filesIn(const fs::path& folder) {
  std::vector<std::string> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    files.push_back(entry.path().lexically_relative(folder).string());
  }
  return files;
}

/// Qt would cache the compiled panel there if the program did not contain it.
TEST(ReplayTraces, NothingIsLeftInTheUsersFolder) {
  const TemporaryFolder folder;
  const fs::path home = folder.path() / "home";
  fs::create_directory(home);
  const std::string picture = (folder.path() / "panel.png").string();
  const ToolOutput output = ChildProcessRunner().run(
      "/usr/bin/env",
      {"-u", "XDG_CACHE_HOME", "-u", "XDG_CONFIG_HOME", "-u", "XDG_DATA_HOME",
       "HOME=" + home.string(), REPLAY_PROGRAM, SAMPLES_FOLDER "/desk", "--screenshot", picture});
  EXPECT_EQ(output.exitStatus, 0);
  EXPECT_TRUE(fs::exists(picture));
  EXPECT_EQ(filesIn(home), std::vector<std::string>());
}

} // namespace
} // namespace tamberline
