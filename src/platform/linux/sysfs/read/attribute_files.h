// How the kernel's description of the machine is read. Every entry may be missing, unreadable, gone
// in the middle, or hold what a device makes up; none of that is an error. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// The kernel gives at most a page for an attribute.
inline constexpr std::size_t maxAttributeBytes = 4096;

/// What the file holds, up to a number of bytes; empty when it cannot be read.
std::string readBytes(const std::filesystem::path& file, std::size_t maxBytesRead);

/// An attribute as UTF-8 without control characters and without white space at its ends: bytes that
/// are no UTF-8 become U+FFFD, control characters blanks. Absent when nothing is left.
std::optional<std::string> readText(const std::filesystem::path& file);

/// The same, or an empty text.
std::string readTextOrNothing(const std::filesystem::path& file);

/// The decimal number of an attribute, with whatever unit behind it: "500mA" is 500.
std::optional<std::int64_t> readNumber(const std::filesystem::path& file);

/// The chosen word where an attribute lists what can be chosen: "source [sink]" is "sink". A single
/// word is chosen.
std::string readChoice(const std::filesystem::path& file);

/// What a symbolic link says; absent when there is none.
std::optional<std::filesystem::path> linkTarget(const std::filesystem::path& link);

/// The last part of that.
std::optional<std::string> linkedName(const std::filesystem::path& link);

bool doesExist(const std::filesystem::path& path);

/// The names in a folder, sorted; empty when it cannot be read.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace tamberline::sysfs
