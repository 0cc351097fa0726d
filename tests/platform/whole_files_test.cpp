#include "platform/posix/whole_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <fstream>
#include <iterator>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::set<std::string> namesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

class WholeFilesTest : public testing::Test {
protected:
  TemporaryFolder folder;
  fs::path target = folder.path() / "target";
};

TEST_F(WholeFilesTest, CreateAFolder) {
  EXPECT_EQ(createFolder(target, {{"a", "1"}, {"b", ""}}), std::nullopt);
  EXPECT_EQ(namesIn(target), (std::set<std::string>{"a", "b"}));
  EXPECT_EQ(contentOf(target / "a"), "1");
  EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"target"});
}

TEST_F(WholeFilesTest, TakeTheSlashAtTheEndOfAFolder) {
  EXPECT_EQ(createFolder(target.string() + "/", {{"a", "1"}}), std::nullopt);
  EXPECT_EQ(contentOf(target / "a"), "1");
}

TEST_F(WholeFilesTest, FillAnEmptyFolder) {
  fs::create_directory(target);
  EXPECT_EQ(createFolder(target, {{"a", "1"}}), std::nullopt);
  EXPECT_EQ(contentOf(target / "a"), "1");
}

TEST_F(WholeFilesTest, NeverWriteOverSomethingElse) {
  const auto expectRefusal = [&] {
    EXPECT_EQ(createFolder(target, {{"a", "1"}}), "File exists");
    EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"target"});
  };
  folder.save("target", "a file");
  expectRefusal();
  EXPECT_EQ(contentOf(target), "a file");
  EXPECT_EQ(createFile(target, "other"), "File exists");
  fs::remove(target);
  fs::create_directory(target);
  folder.save("target/else", "something");
  expectRefusal();
  EXPECT_EQ(namesIn(target), std::set<std::string>{"else"});
}

TEST_F(WholeFilesTest, BecomeOtherNamesOfAFile) {
  folder.save("file", "old");
  folder.save("other", "new");
  const fs::path file = folder.path() / "file";
  for (int time = 1; time <= 2; ++time) {
    EXPECT_TRUE(replaceByLink(file, folder.path() / "other"));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(fs::hard_link_count(file), 2U);
  }
  EXPECT_FALSE(replaceByLink(file, folder.path() / "missing"));
  EXPECT_EQ(contentOf(file), "new");
  EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"file", "other"}));
}

TEST_F(WholeFilesTest, LeaveNothingAfterAFailure) {
  EXPECT_EQ(createFolder(target / "below", {{"a", "1"}}), "No such file or directory");
  EXPECT_EQ(createFolder(target, {{"a", "1"}, {"no/such/folder", "2"}}),
            "No such file or directory");
  EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{});
}

TEST_F(WholeFilesTest, ShareUnchangedFiles) {
  const std::map<std::string, std::string> before = {{"same", "1"}, {"changed", "2"}};
  ASSERT_EQ(createFolder(folder.path() / "before", before), std::nullopt);
  ASSERT_EQ(createFolderLike(target, {{"same", "1"}, {"changed", "3"}, {"new", "4"}},
                             folder.path() / "before", before),
            std::nullopt);
  EXPECT_EQ(fs::hard_link_count(target / "same"), 2U);
  EXPECT_EQ(fs::hard_link_count(target / "changed"), 1U);
  EXPECT_EQ(contentOf(target / "same") + contentOf(target / "changed") + contentOf(target / "new"),
            "134");
}

TEST_F(WholeFilesTest, CreateAFileButNotOverALink) {
  EXPECT_EQ(createFile(target, "1"), std::nullopt);
  EXPECT_EQ(contentOf(target), "1");
  EXPECT_EQ(fs::hard_link_count(target), 1U);
  fs::remove(target);
  fs::create_symlink("nowhere", target);
  EXPECT_EQ(createFile(target, "2"), "File exists");
  EXPECT_EQ(createFile(target / "below", "2"), "No such file or directory");
  EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"target"});
}

/// A file that another process sees, it sees whole: its name comes last.
TEST_F(WholeFilesTest, AppearUnderTheirNamesWithAllOfTheirContent) {
  const std::string content(20'000'000, 'x');
  std::atomic<bool> isOver = false;
  std::size_t shortest = content.size();
  std::thread reader([&] {
    while (!isOver) {
      std::error_code error;
      const std::uintmax_t size = fs::file_size(target, error);
      shortest = error ? shortest : std::min<std::size_t>(shortest, size);
    }
  });
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(createFile(target, content), std::nullopt);
    EXPECT_EQ(replaceFile(target, content), std::nullopt);
    fs::remove(target);
  }
  isOver = true;
  reader.join();
  EXPECT_EQ(shortest, content.size());
}

TEST_F(WholeFilesTest, LeaveNoTemporaryFileOnAFullMedium) {
  rlimit before = {};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small = {1000, before.rlim_max};
  const auto usual = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_EQ(createFile(target, std::string(2000, 'x')), "File too large");
  EXPECT_EQ(replaceFile(target, std::string(2000, 'x')), "File too large");
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, usual);
  EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{});
}

TEST_F(WholeFilesTest, ReplaceNothingButAFile) {
  folder.save("file", "1");
  fs::create_symlink("file", target);
  EXPECT_EQ(replaceFile(target, "2"), "Not a regular file");
  EXPECT_EQ(contentOf(target), "1");
  fs::remove(target);
  ASSERT_EQ(mkfifo(target.c_str(), 0600), 0);
  EXPECT_EQ(replaceFile(target, "2"), "Not a regular file");
  EXPECT_TRUE(fs::is_fifo(target));
  EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"file", "target"}));
}

TEST_F(WholeFilesTest, ReplaceAFile) {
  EXPECT_EQ(replaceFile(target, "1"), std::nullopt);
  EXPECT_EQ(replaceFile(target, "2"), std::nullopt);
  EXPECT_EQ(contentOf(target), "2");
  EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"target"});
  EXPECT_EQ(replaceFile(folder.path(), "3"), "Is a directory");
}

} // namespace
} // namespace tamberline
