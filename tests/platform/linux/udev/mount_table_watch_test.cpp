#include "platform/linux/udev/mount_table_watch.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <string>
#include <sys/mount.h>

namespace tamberline {
namespace {

class MountTable : public testing::Test {
protected:
  void SetUp() override {
    if (unshare(CLONE_NEWNS) != 0 ||
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
      GTEST_SKIP() << "this machine does not let the test mount anything: " << std::strerror(errno);
    }
  }

  void TearDown() override { umount2(folder.path().c_str(), MNT_DETACH); }

  void mountFrom(const char* source) const {
    ASSERT_EQ(mount(source, folder.path().c_str(), "tmpfs", 0, nullptr), 0);
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  TemporaryFolder folder;
  int changes = 0;
};

TEST_F(MountTable, ReportsWhenADeviceIsMountedAndUnmounted) {
  const MountTableWatch watch("/proc/self/mountinfo", [this] { ++changes; });
  mountFrom("/dev/invented");
  EXPECT_TRUE(runEventsUntil([this] { return changes == 1; }));
  umount2(folder.path().c_str(), 0);
  EXPECT_TRUE(runEventsUntil([this] { return changes == 2; }));
}

TEST_F(MountTable, IgnoresOtherFileSystems) {
  const MountTableWatch watch("/proc/self/mountinfo", [this] { ++changes; });
  for (const char* source : {"nothing", "/dev/loop7"}) {
    mountFrom(source);
    QCoreApplication::processEvents();
    umount2(folder.path().c_str(), 0);
    QCoreApplication::processEvents();
  }
  mountFrom("/dev/invented");
  EXPECT_TRUE(runEventsUntil([this] { return changes > 0; }));
  EXPECT_EQ(changes, 1);
}

TEST_F(MountTable, MayEndTheWatchFromItsHandler) {
  auto watch = std::unique_ptr<MountTableWatch>();
  watch = std::make_unique<MountTableWatch>("/proc/self/mountinfo", [&] {
    ++changes;
    watch.reset();
  });
  mountFrom("/dev/invented");
  EXPECT_TRUE(runEventsUntil([this] { return changes == 1; }));
}

TEST_F(MountTable, MayBeMissing) {
  const MountTableWatch watch("/nowhere/at/all", [this] { ++changes; });
  QCoreApplication::processEvents();
  EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace tamberline
