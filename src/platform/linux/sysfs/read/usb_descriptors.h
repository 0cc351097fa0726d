// Decodes the descriptors of USB devices. The kernel reads them when a device is plugged in and
// returns them at once, even while it waits for a device that no longer answers.
#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// The container identifier in a device's capabilities (its BOS descriptor), as a UUID; absent if
/// there is none or it is all zeros, which identifies no container.
std::optional<std::string> containerIdIn(std::string_view descriptors);

/// The USB version in a device descriptor, with which `descriptors` begins: 0x0210 is 2.1.
std::optional<std::int64_t> usbVersionIn(std::string_view descriptors);

/// The speeds in a device's capabilities (its BOS descriptor). A limit is known only if all of them
/// could be read: a device without the SuperSpeed capability only knows USB 2. Absent if the bytes
/// do not start with such a descriptor.
std::optional<UsbCapabilities> capabilitiesIn(std::string_view descriptors);

/// The current in mA that a configuration is rated at. `descriptors` is a device descriptor
/// followed by its configurations; absent if it does not contain that configuration.
std::optional<std::int64_t> ratedMaIn(std::string_view descriptors, int configuration,
                                      bool isSuperSpeed);

} // namespace tamberline::sysfs
