#include "macos_stand_in/fake_mac.h"
#include "platform/macos/disk_utility_ejector.h"
#include "platform/macos/mac_machine.h"
#include "platform/posix/posix_volume_files.h"
#include "platform/this_machine.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(ThisMac, HasEverythingThatAMacHas) {
  FakeMac::reset();
  const auto queue = std::make_shared<HandDrivenQueue>();
  const ScannerServices mac = thisMachine(queue);
  EXPECT_EQ(mac.acquisition.queue, queue);
  EXPECT_NE(std::dynamic_pointer_cast<MacMachine>(mac.acquisition.machine), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<DiskUtilityEjector>(mac.ejector), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<PosixVolumeFiles>(mac.volumes), nullptr);
  ASSERT_NE(mac.benchmark, nullptr);
  EXPECT_EQ(mac.benchmark->sizeMB(), Benchmark::defaultSizeMB);
}

TEST(ThisMac, ReportsItsEvents) {
  FakeMac::reset();
  const ScannerServices mac = thisMachine(std::make_shared<HandDrivenQueue>());
  int changes = 0;
  mac.events->start({.registryChanged = [&changes] { ++changes; }, .powerChanged = [] {}});
  FakeMac::get().notifyRegistration(0, 1);
  EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace tamberline
