#pragma once

#include "model/thunderbolt_records.h"
#include "model/usb_records.h"

#include <string>

namespace tamberline {

/// The symbol of a device, guessed from the words in its name.
std::string iconFor(const USBDevice& device);
std::string iconFor(const ThunderboltDevice& device);

} // namespace tamberline
