// The real disk service, on a separate bus, with a file system in a file.
#include "platform/child_program.h"
#include "platform/linux/udisks/eject_text.h"
#include "platform/linux/udisks/mounted_image.h"
#include "platform/linux/udisks/private_mounts.h"
#include "platform/linux/udisks/system_bus.h"
#include "platform/private_bus.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>

namespace tamberline {
namespace {

constexpr const char* serviceProgram = "/usr/libexec/udisks2/udisksd";

bool isServiceOnBus() {
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
  question << QStringLiteral("org.freedesktop.UDisks2");
  return SystemBus().callForAnswer(question).arguments().value(0).toBool();
}

class DiskService : public testing::Test {
protected:
  using Test = std::function<void(const MountedImage& image)>;

  void SetUp() override {
    SystemBus(); // starts Qt's thread for buses, which would keep the private mounts it starts in
  }
  void TearDown() override {
    EXPECT_TRUE(runEventsUntil([&] { return !hasLoopDevice(folder); }));
  }

  /// Does something while the service is running and an image is mounted; skips the test if that is
  /// impossible.
  void doWithService(const Test& something) {
    if (geteuid() != 0) {
      GTEST_SKIP() << "only root can mount";
    }
    if (!std::filesystem::exists(serviceProgram)) {
      GTEST_SKIP() << serviceProgram << " is not installed";
    }
    std::string problem;
    const std::string missing = doWithPrivateMounts([&] { problem = doInPrivate(something); });
    if (!missing.empty() || !problem.empty()) {
      GTEST_SKIP() << missing << problem;
    }
  }

  TemporaryFolder folder;

private:
  /// Why it could not be done; empty if it was.
  std::string doInPrivate(const Test& something) const {
    const MountedImage image(folder);
    if (image.problem().empty()) {
      const PrivateBus bus(folder);
      ChildProgram service({serviceProgram, "--no-debug"});
      if (runEventsUntil(isServiceOnBus)) {
        something(image);
      } else {
        ADD_FAILURE() << service.output();
      }
    }
    return image.problem();
  }
};

TEST_F(DiskService, UnmountsAVolume) {
  doWithService([&](const MountedImage& image) {
    EXPECT_TRUE(image.isMounted());
    EXPECT_TRUE(hasLoopDevice(folder));
    EXPECT_EQ(eject(image.mountPoint()), "ejected");
    EXPECT_FALSE(image.isMounted());
  });
}

TEST_F(DiskService, UnmountsAVolumeFromEverywhere) {
  doWithService([&](const MountedImage& image) {
    const std::string otherPlace = (folder.path() / "other place").string();
    image.mountAlsoAt(otherPlace);
    ASSERT_TRUE(std::filesystem::exists(otherPlace + "/lost+found"));
    EXPECT_EQ(eject(image.mountPoint()), "ejected");
    EXPECT_FALSE(image.isMounted());
    EXPECT_FALSE(std::filesystem::exists(otherPlace + "/lost+found"));
  });
}

TEST_F(DiskService, SaysThatAVolumeIsBusyAndLeavesItMounted) {
  doWithService([](const MountedImage& image) {
    std::ofstream openFile(image.mountPoint() + "/open file");
    EXPECT_EQ(eject(image.mountPoint()),
              "failed: Error unmounting " + image.device() + ": target is busy");
    EXPECT_TRUE(image.isMounted());
    openFile.close();
    EXPECT_EQ(eject(image.mountPoint()), "ejected");
    EXPECT_FALSE(image.isMounted());
  });
}

TEST_F(DiskService, FindsNoVolumeIfNoneIsMounted) {
  doWithService([](const MountedImage& image) {
    EXPECT_EQ(eject(image.mountPoint() + "/lost+found"), "refused: not there any more");
    EXPECT_TRUE(image.isMounted());
  });
}

TEST_F(DiskService, IdentifiesAVolumeByTheNumberOfItsDevice) {
  doWithService([](const MountedImage& image) {
    EXPECT_EQ(eject(image.mountPoint(), image.deviceNumber() + 1), "refused: not there any more");
    EXPECT_TRUE(image.isMounted());
    EXPECT_EQ(eject(image.mountPoint(), image.deviceNumber()), "ejected");
    EXPECT_FALSE(image.isMounted());
  });
}

} // namespace
} // namespace tamberline
