#include "platform/linux/sysfs/read/machine_reader.h"
#include "platform/linux/sysfs/report/linux_machine.h"
#include "platform/linux/udev/udev_event_source.h"
#include "platform/linux/udev/udev_hardware_names.h"
#include "platform/this_machine.h"

namespace tamberline {

std::shared_ptr<MachineSource> sourceOfThisMachine() {
  return std::make_shared<LinuxMachine>(
      [names = udevHardwareNames(), texts = std::make_shared<sysfs::UsbStringCache>()] {
        return sysfs::readMachine(MachinePaths(), names, *texts);
      });
}

std::shared_ptr<PortEventSource> eventsOfThisMachine() {
  return std::make_shared<UdevEventSource>();
}

} // namespace tamberline
