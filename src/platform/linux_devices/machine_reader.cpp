#include "platform/linux_devices/machine_reader.h"

#include "platform/linux_devices/power_supply_reader.h"
#include "platform/linux_devices/thunderbolt_reader.h"
#include "platform/linux_devices/typec_reader.h"
#include "platform/linux_devices/usb_reader.h"
#include "platform/linux_devices/volumes.h"

namespace tamberline::sysfs {

Machine readMachine(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbTextKeeper& texts) {
  Machine machine{
      .usb = readUsb(paths, database, texts),
      .thunderbolt = readThunderbolt(paths.sysfs),
      .typecPorts = readTypecPorts(paths.sysfs),
      .powerSupplies = readPowerSupplies(paths.sysfs),
  };
  addVolumes(paths, machine);
  return machine;
}

} // namespace tamberline::sysfs
