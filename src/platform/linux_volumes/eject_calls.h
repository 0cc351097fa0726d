#pragma once

#include "platform/linux_volumes/disk_objects.h"

#include <QString>

#include <string>
#include <vector>

namespace tamberline {

/// A method of one of the disk service's objects, which takes nothing but options.
struct DiskCall {
  QString object;
  const char* interface;
  const char* method;
};

/// The calls that make the drive of a mounted volume safe to pull, in their order; each must
/// succeed before the next. All file systems of the drive are unmounted, that of the volume first,
/// then encrypted devices are locked, then the disc is ejected, the device powered off or the
/// medium ejected, whatever comes first of what the drive can do. Without a drive (a disk image)
/// only the file system is unmounted.
///
/// A device with several drives is left on while another of them is in use.
///
/// Empty when no volume is mounted there, and when the drive also holds the running system.
std::vector<DiskCall> callsToEject(const DiskObjects& objects, const std::string& mountPoint);

} // namespace tamberline
