// What USB devices describe themselves with, as the kernel read it when they were plugged in. It
// gives these bytes at once, also while it waits for a device that no longer answers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// The container identifier in a device's capabilities (its BOS descriptor), as a UUID; absent when
/// there is none, and for one of zeros only, which names no container.
std::optional<std::string> containerIdIn(std::string_view descriptors);

/// The current in mA that a configuration is rated at, in a device descriptor with its
/// configurations behind it; absent when that configuration is not among them.
std::optional<std::int64_t> ratedMaIn(std::string_view descriptors, int configuration,
                                      bool isSuperSpeed);

} // namespace tamberline::sysfs
