#include "platform/linux/sysfs/read/machine.h"

#include "base/text.h"

namespace tamberline::sysfs {

bool UsbDevice::isSuperSpeed() const {
  const auto megabits = parseDecimal(megabitsPerSecond);
  return megabits && *megabits >= 5000;
}

RouterAddress RouterAddress::parent() const {
  constexpr unsigned bitsOfHop = 8;
  unsigned bits = 0;
  while (bits + bitsOfHop < 64 && (route >> (bits + bitsOfHop)) != 0) {
    bits += bitsOfHop;
  }
  return {domain, route & ((std::uint64_t{1} << bits) - 1)};
}

bool PowerSupply::isBattery() const {
  return type == "Battery" && !belongsToDevice;
}

bool PowerSupply::tellsContract() const {
  return name.starts_with("ucsi-source-psy-") || name.starts_with("tcpm-source-psy-");
}

bool PowerSupply::isAdapter() const {
  return (type == "Mains" || type.starts_with("USB")) && !belongsToDevice;
}

} // namespace tamberline::sysfs
