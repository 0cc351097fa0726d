#include "platform/posix/whole_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

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

TEST_F(WholeFilesTest, ReplaceAFile) {
  EXPECT_EQ(replaceFile(target, "1"), std::nullopt);
  EXPECT_EQ(replaceFile(target, "2"), std::nullopt);
  EXPECT_EQ(contentOf(target), "2");
  EXPECT_EQ(namesIn(folder.path()), std::set<std::string>{"target"});
  EXPECT_EQ(replaceFile(folder.path(), "3"), "Is a directory");
}

} // namespace
} // namespace tamberline
