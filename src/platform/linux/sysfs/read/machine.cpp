#include "platform/linux/sysfs/read/machine.h"

#include "base/text.h"

namespace tamberline::sysfs {

bool UsbDevice::isSuperSpeed() const {
  const auto megabits = parseDecimal(megabitsPerSecond);
  return megabits && *megabits >= 5000;
}

RouterAddress RouterAddress::parent() const {
  constexpr unsigned bitsPerHop = 8;
  unsigned bits = 0;
  while (bits + bitsPerHop < 64 && (route >> (bits + bitsPerHop)) != 0) {
    bits += bitsPerHop;
  }
  return {domain, route & ((std::uint64_t{1} << bits) - 1)};
}

bool PowerSupply::isBattery() const {
  return type == "Battery" && !belongsToDevice;
}

bool PowerSupply::reportsContract() const {
  return name.starts_with("ucsi-source-psy-") || name.starts_with("tcpm-source-psy-");
}

bool PowerSupply::isAdapter() const {
  return (type == "Mains" || type.starts_with("USB")) && !belongsToDevice;
}

} // namespace tamberline::sysfs
