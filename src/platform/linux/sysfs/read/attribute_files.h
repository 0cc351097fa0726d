// Reads the kernel's description of the machine. Any entry may be missing or unreadable, disappear
// while it is read, or contain arbitrary data from a device; none of that is an error. The
// functions may be called on any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// The kernel limits an attribute to one page.
inline constexpr std::size_t maxAttributeBytes = 4096;

/// The content of the file, up to `maxBytesRead`; empty if it cannot be read.
std::string readBytes(const std::filesystem::path& file, std::size_t maxBytesRead);

/// An attribute as UTF-8: invalid UTF-8 becomes U+FFFD, control characters become blanks, and white
/// space at both ends is removed. Absent if nothing is left.
std::optional<std::string> readText(const std::filesystem::path& file);

/// The same, but empty instead of absent.
std::string readTextOrNothing(const std::filesystem::path& file);

/// The decimal number at the start of an attribute, without a unit after it: "500mA" is 500.
std::optional<std::int64_t> readNumber(const std::filesystem::path& file);

/// The selected word of an attribute that lists options: "source [sink]" is "sink". A single word
/// counts as selected.
std::string readChoice(const std::filesystem::path& file);

/// The target of a symbolic link; absent if there is none.
std::optional<std::filesystem::path> linkTarget(const std::filesystem::path& link);

/// The last part of the target of a symbolic link.
std::optional<std::string> linkedName(const std::filesystem::path& link);

bool doesExist(const std::filesystem::path& path);

/// The names in a folder, sorted; empty if it cannot be read.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace tamberline::sysfs
