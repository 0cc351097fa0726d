#include "model/power_records.h"

#include "model/usb_records.h"

#include <algorithm>

namespace tamberline {

bool HPMPort::carriesPowerOnly() const {
  return !isMagSafe && connectionActive && !hasData && !hasVideo;
}

bool HPMPort::isCharger() const {
  return (isMagSafe && connectionActive) || (carriesPowerOnly() && accessoryID == -1);
}

bool HPMPort::isChargeOnlyDevice() const {
  return carriesPowerOnly() && accessoryID != -1;
}

std::optional<std::string> HPMPort::cableLabel() const {
  if (opticalCable) {
    return "optical cable";
  }
  if (activeCable) {
    return "active cable";
  }
  return std::nullopt;
}

std::string HPMPort::label() const {
  return friendlyPortName((isMagSafe ? "MagSafe 3@" : "USB-C@") + std::to_string(portNumber));
}

const HPMPort* usbcController(const std::vector<HPMPort>& controllers, std::int64_t portNumber) {
  const auto found = std::find_if(controllers.begin(), controllers.end(), [&](const HPMPort& port) {
    return port.portNumber == portNumber && !port.isMagSafe;
  });
  return found == controllers.end() ? nullptr : &*found;
}

} // namespace tamberline
