#pragma once

#include "model/usb_records.h"

#include <cstdint>

namespace tamberline {

/// What a USB device is used for, as far as its speed matters.
enum class DeviceRole : std::uint8_t {
  drive,   // of any kind, except for card readers
  network, // an adapter
  quiet,   // keyboards, mice, audio, readers and phones: never asked for more speed
  hub,
  other, // unknown, or anything else
};

/// By its volumes and by words in its name, since records have no device class.
DeviceRole roleOf(const USBDevice& device);

} // namespace tamberline
