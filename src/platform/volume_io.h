// System-specific operations on the files of a volume. Functions that take an open descriptor do no
// harm if its file system does not support them.
#pragma once

#include "storage/volume_files.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

/// Flags for opening a folder only to look up entries, or a file only to keep its inode in use.
extern const int pathOpenFlags;

/// Identifies the file system mounted at `folder`, which was opened by the path `mountPoint`. Empty
/// if the folder is not the root of a mount.
VolumeIdentity identityOf(int folder, const std::string& mountPoint);

/// How much an unprivileged user can still write to the folder's volume; absent if the system does
/// not report it.
std::optional<std::uint64_t> availableBytes(int folder);

/// Makes reads and writes bypass the system's cache. False if the file system refuses.
bool bypassCache(int descriptor);

/// Undoes `bypassCache`.
void useCache(int descriptor);

/// Returns once everything written is on the medium, not only in the drive's own cache. False if
/// this fails or the file system cannot confirm it.
bool flushToMedium(int descriptor);

/// Drops the file's pages from the system's cache, so that reading the file reads the medium.
/// Unflushed data stays.
void dropCachedPages(int descriptor);

/// Whether a user-space program serves the file system. Such a program reads the device through the
/// system's cache, even if reads of the file bypass it.
bool isServedByProgram(int descriptor);

/// Flushes and drops the cached pages of the device that holds the file system. False if the user
/// lacks permission or there is no device.
bool dropDevicePages(int folder);

/// Total bytes read from the device that holds the file system, by any program; absent if the
/// system does not count them.
std::optional<std::uint64_t> bytesReadFromDevice(int folder);

} // namespace tamberline
