// What each system does in its own way with the files of a volume. Those that take an open
// descriptor are harmless where its file system knows nothing of them.
#pragma once

#include "storage/volume_files.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

/// The flags that open a folder only to find things in it, or to find a file only to keep its
/// number.
extern const int pathOpenFlags;

/// What is mounted at the folder that was opened by the name of the mount point. Empty when it only
/// lies on some file system.
VolumeIdentity identityOf(int folder, const std::string& mountPoint);

/// What an ordinary person may still write to the volume with this folder; absent when the system
/// does not tell.
std::optional<std::uint64_t> availableBytes(int folder);

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

/// Whether a program stands between the file system's files and its device. It reads the device
/// through the system's cache, whatever is asked of the files.
bool isServedByProgram(int descriptor);

/// Writes what the system holds back for the device with the file system, and forgets what it
/// remembers of the device. False when the person may not do that, or when there is no device.
bool dropDevicePages(int folder);

/// How much was ever read from the device with the file system, by anybody; absent when the system
/// does not count.
std::optional<std::uint64_t> bytesReadFromDevice(int folder);

} // namespace tamberline
