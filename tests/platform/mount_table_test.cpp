#include "macos_stand_in/file_systems.h"
#include "platform/macos/mount_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

std::vector<MacFileSystems::Mounted> disks(int first, int count) {
  std::vector<MacFileSystems::Mounted> mounted;
  for (int number = first; number < first + count; ++number) {
    mounted.push_back({"/dev/disk" + std::to_string(number), "/Volumes/" + std::to_string(number)});
  }
  return mounted;
}

TEST(MountTable, ListsWhatIsMountedInTheSystemsOrder) {
  freshMacFileSystems().mounted = {{"/dev/disk3s1s1", "/"},
                                   {"devfs", "/dev"},
                                   {"/dev/disk4s2", "/Volumes/Küste Sommer"},
                                   {"//person@server/share", "/Volumes/share"}};
  EXPECT_EQ(mountTable(), (std::vector<Mount>{{"/dev/disk3s1s1", "/"},
                                              {"devfs", "/dev"},
                                              {"/dev/disk4s2", "/Volumes/Küste Sommer"},
                                              {"//person@server/share", "/Volumes/share"}}));
}

TEST(MountTable, IsEmptyWhereNothingIsMounted) {
  freshMacFileSystems();
  EXPECT_EQ(mountTable(), std::vector<Mount>());
}

TEST(MountTable, HasWhatIsMountedWhileItIsRead) {
  for (const int more : {1, 7, 8, 9, 50}) {
    SCOPED_TRACE(more);
    MacFileSystems& fileSystems = freshMacFileSystems();
    fileSystems.mounted = disks(1, 3);
    fileSystems.mountedMeanwhile = disks(4, more);
    const std::vector<Mount> mounts = mountTable();
    ASSERT_EQ(mounts.size(), 3U + static_cast<std::size_t>(more));
    EXPECT_EQ(mounts.back().device, "/dev/disk" + std::to_string(3 + more));
  }
}

TEST(MountTable, IsEmptyIfTheSystemReportsNothing) {
  for (const int looks : {0, 1, 2}) {
    SCOPED_TRACE(looks);
    MacFileSystems& fileSystems = freshMacFileSystems();
    fileSystems.mounted = disks(1, 3);
    fileSystems.mountedMeanwhile = disks(4, 50);
    fileSystems.looksThatSucceed = looks;
    EXPECT_EQ(mountTable(), std::vector<Mount>());
  }
}

} // namespace
} // namespace tamberline
