#pragma once

#include "platform/linux/sysfs/read/machine.h"

#include <filesystem>
#include <vector>

namespace tamberline::sysfs {

/// The powers that a port or its partner (`device`) offers as a source.
std::vector<PowerOffer> readSourceOffers(const std::filesystem::path& device);

/// The powers that it takes as a sink.
std::vector<PowerOffer> readSinkOffers(const std::filesystem::path& device);

} // namespace tamberline::sysfs
