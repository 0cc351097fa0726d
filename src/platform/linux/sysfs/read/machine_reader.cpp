#include "platform/linux/sysfs/read/machine_reader.h"

#include "platform/linux/sysfs/read/device_readers.h"

namespace tamberline::sysfs {

Machine readMachine(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbStringCache& texts) {
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
