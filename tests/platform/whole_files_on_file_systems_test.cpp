#include "platform/mounted_volume.h"
#include "platform/posix/whole_files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <unistd.h>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

std::string textIn(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::set<std::string> namesOn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

/// The file systems of memory sticks have no hard links.
class WholeFilesOn : public testing::TestWithParam<std::string> {
protected:
  void SetUp() override {
    try {
      volume_.emplace(VolumeSetting{.fileSystem = GetParam()});
    } catch (const VolumeUnavailable& reason) {
      GTEST_SKIP() << reason.what();
    }
  }

  fs::path path(const std::string& name) const { return fs::path(volume_->mountPoint()) / name; }

  std::optional<MountedVolume> volume_;
};

TEST_P(WholeFilesOn, CreateAFileOnceAndReplaceIt) {
  EXPECT_EQ(createFile(path("file"), "1"), std::nullopt);
  EXPECT_EQ(createFile(path("file"), "2"), "File exists");
  EXPECT_EQ(textIn(path("file")), "1");
  EXPECT_EQ(replaceFile(path("file"), "3"), std::nullopt);
  EXPECT_EQ(textIn(path("file")), "3");
  EXPECT_FALSE(fs::exists(path(".unfinished-file-" + std::to_string(getpid()))));
}

TEST_P(WholeFilesOn, CopyWhatTheyCannotShare) {
  const std::map<std::string, std::string> files = {{"a", "1"}, {"b", "2"}};
  ASSERT_EQ(createFolder(path("before"), files), std::nullopt);
  ASSERT_EQ(createFolderLike(path("after"), files, path("before"), files), std::nullopt);
  EXPECT_EQ(namesOn(path("after")), (std::set<std::string>{"a", "b"}));
  EXPECT_EQ(textIn(path("after") / "b"), "2");
  EXPECT_EQ(createFolder(path("after"), files), "File exists");
}

std::string lettersOf(std::string name) {
  std::erase_if(name, [](char character) { return character == '-'; });
  return name;
}

INSTANTIATE_TEST_SUITE_P(FileSystems, WholeFilesOn,
                         testing::Values("tmpfs", "vfat", "exfat", "exfat-fuse", "ntfs-3g"),
                         [](const auto& test) { return lettersOf(test.param); });

} // namespace
} // namespace tamberline
