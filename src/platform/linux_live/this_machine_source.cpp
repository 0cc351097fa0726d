#include "platform/this_machine_source.h"

#include "platform/linux_devices/linux_machine.h"
#include "platform/linux_devices/machine_reader.h"
#include "platform/linux_live/udev_event_source.h"
#include "platform/linux_live/udev_hardware_names.h"

namespace tamberline {

std::shared_ptr<MachineSource> sourceOfThisMachine() {
  return std::make_shared<LinuxMachine>(
      [names = udevHardwareNames(), texts = std::make_shared<sysfs::UsbTextKeeper>()] {
        return sysfs::readMachine(MachinePaths(), names, *texts);
      });
}

std::shared_ptr<PortEventSource> eventsOfThisMachine() {
  return std::make_shared<UdevEventSource>();
}

} // namespace tamberline
