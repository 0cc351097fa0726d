// Information from the system about the running process and about its file cache.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace tamberline {

/// The target of each open descriptor.
std::map<std::string, std::string> openDescriptors();

std::uint64_t residentBytes();

/// The transfers to and from media that the calling thread caused; the cache never counts.
struct MediumTraffic {
  std::uint64_t readBytes = 0;
  std::uint64_t writtenBytes = 0;
};

/// Absent if the system does not count them.
std::optional<MediumTraffic> mediumTraffic();

/// How much of the file is in the system's cache. Calling it reads nothing.
std::uint64_t cachedBytes(const std::filesystem::path& file);

} // namespace tamberline
