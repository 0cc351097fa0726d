#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace tamberline {

/// The bytes of a regular file; absent for anything else, also where it takes the place of one at
/// this moment, for what cannot be read, and for more than `mostBytes`. Waits for nobody.
std::optional<std::string> readRegularFile(const std::filesystem::path& path,
                                           std::size_t mostBytes);

} // namespace tamberline
