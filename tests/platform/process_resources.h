// What the system says about the running process and about what it remembers of files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace tamberline {

/// What each open descriptor leads to.
std::map<std::string, std::string> openDescriptors();

std::uint64_t residentBytes();

/// What the calling thread made media move, which the cache never adds to.
struct MediumTraffic {
  std::uint64_t readBytes = 0;
  std::uint64_t writtenBytes = 0;
};

/// Absent where the system does not count.
std::optional<MediumTraffic> mediumTraffic();

/// How much of the file is in the system's cache. Asking reads nothing.
std::uint64_t cachedBytes(const std::filesystem::path& file);

} // namespace tamberline
