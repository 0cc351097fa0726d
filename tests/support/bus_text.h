#pragma once

#include "model/usb_records.h"

#include <string>
#include <vector>

namespace tamberline {

/// Buses and devices as indented text, each device with its speed token if it has one.
std::string busText(const std::vector<USBBus>& buses);

} // namespace tamberline
