#pragma once

#include "model/by_usb_location.h"
#include "model/device_ability.h"

#include <string>

namespace tamberline {

/// Container identifiers: which devices are in one physical box.
using ContainerIDs = ByUSBLocation<std::string>;

using USBAbilities = ByUSBLocation<USBAbility>;

/// What the registry knows about the USB devices beyond the report.
struct USBHostDevices {
  ContainerIDs containerIDs;
  USBAbilities abilities;
};

} // namespace tamberline
