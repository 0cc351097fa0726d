#include "platform/macos/disk_utility_ejector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

/// A disk utility that gives the answers set by the test.
class FakeDiskUtility final : public ToolRunner {
public:
  explicit FakeDiskUtility(ToolOutput answer) : answer_(std::move(answer)) {}

  ToolOutput run(const std::string& /*executable*/,
                 const std::vector<std::string>& /*arguments*/) override {
    return {};
  }
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override {
    words = {executable};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return answer_;
  }

  std::vector<std::string> words;

private:
  ToolOutput answer_;
};

EjectOutcome outcomeOf(ToolOutput answer) {
  return DiskUtilityEjector(std::make_shared<FakeDiskUtility>(std::move(answer)))
      .eject({.mountPoint = "/Volumes/Data"});
}

TEST(DiskUtilityEjector, PassesTheMountPointAsOneArgument) {
  for (const std::string mountPoint :
       {"/Volumes/Data", "/Volumes/My Disk", "/Volumes/\"quoted\" 'twice'", "/Volumes/Füße",
        "/Volumes/-rf", "/Volumes/$HOME;ls", "/Volumes/a\nb"}) {
    SCOPED_TRACE(mountPoint);
    const auto tool = std::make_shared<FakeDiskUtility>(ToolOutput{"", 0});
    EXPECT_TRUE(DiskUtilityEjector(tool).eject({.mountPoint = mountPoint}).isEjected);
    EXPECT_EQ(tool->words, (std::vector<std::string>{"/usr/sbin/diskutil", "eject", mountPoint}));
  }
}

TEST(DiskUtilityEjector, SucceedsOnlyWithStatusZero) {
  EXPECT_TRUE(outcomeOf({"Disk /Volumes/Data ejected", 0}).isEjected);
  EXPECT_FALSE(outcomeOf({"Volume busy", 1}).isEjected);
  EXPECT_FALSE(outcomeOf({"", std::nullopt}).isEjected);
}

TEST(DiskUtilityEjector, ReturnsTheToolsMessage) {
  EXPECT_EQ(outcomeOf({"Volume busy\n", 1}).message, "Volume busy\n");
  EXPECT_EQ(outcomeOf({"", std::nullopt}).message, "");
}

} // namespace
} // namespace tamberline
