// Decodes the descriptors of USB devices. The kernel reads them when a device is plugged in and
// returns them at once, even while it waits for a device that no longer answers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// The container identifier in a device's capabilities (its BOS descriptor), as a UUID; absent if
/// there is none or it is all zeros, which identifies no container.
std::optional<std::string> containerIdIn(std::string_view descriptors);

/// The current in mA that a configuration is rated at. `descriptors` is a device descriptor
/// followed by its configurations; absent if it does not contain that configuration.
std::optional<std::int64_t> ratedMaIn(std::string_view descriptors, int configuration,
                                      bool isSuperSpeed);

} // namespace tamberline::sysfs
