// What each system does in its own way with the files of a volume. Those that take an open
// descriptor are harmless where its file system knows nothing of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

/// What an ordinary person may still write to the volume with this folder; absent when the system
/// does not tell.
std::optional<std::uint64_t> availableBytes(const std::string& folder);

/// Reads and writes go past the system's cache from now on. False when the file system refuses.
bool bypassCache(int descriptor);

/// Takes that back.
void useCache(int descriptor);

/// Returns when the medium holds everything that was written, whatever the drive would like to keep
/// back. False when it does not, or when the file system cannot tell.
bool flushToMedium(int descriptor);

/// Forgets what the system remembers of the file, so that reading it reads the medium. What was not
/// flushed stays.
void dropCachedPages(int descriptor);

} // namespace tamberline
