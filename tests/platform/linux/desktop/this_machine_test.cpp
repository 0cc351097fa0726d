#include "platform/linux/sysfs/report/linux_machine.h"
#include "platform/linux/udev/udev_event_source.h"
#include "platform/linux/udisks/udisks_ejector.h"
#include "platform/posix/posix_volume_files.h"
#include "platform/this_machine.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(ThisLinuxMachine, HasEverythingThatALinuxMachineHas) {
  const auto queue = std::make_shared<HandDrivenQueue>();
  const ScannerServices machine = thisMachine(queue);
  EXPECT_EQ(machine.acquisition.queue, queue);
  EXPECT_NE(std::dynamic_pointer_cast<LinuxMachine>(machine.acquisition.machine), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<UdevEventSource>(machine.events), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<UDisksEjector>(machine.ejector), nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<PosixVolumeFiles>(machine.volumes), nullptr);
  ASSERT_NE(machine.benchmark, nullptr);
  EXPECT_EQ(machine.benchmark->sizeMB(), Benchmark::defaultSizeMB);
}

} // namespace
} // namespace tamberline
