#pragma once

#include "platform/linux/udisks/disk_objects.h"
#include "storage/volume_ejector.h"

#include <QString>

#include <optional>
#include <vector>

namespace tamberline {

/// A method of one of the disk service's objects, which takes nothing but options.
struct DiskCall {
  QString object;
  const char* interface;
  const char* method;
};

/// What ejecting takes; nothing at all where the service's objects contradict each other.
struct EjectPlan {
  std::vector<DiskCall> calls = {}; // in this order; each must succeed before the next
  std::optional<EjectRefusal> refusal = {};
};

/// What makes the drive of a mounted volume safe to pull. All file systems of the drive are
/// unmounted, that of the volume first, then encrypted devices are locked, then the disc is
/// ejected, the device powered off or the medium ejected, whatever comes first of what the drive
/// can do. Without a drive (a disk image) only the file system is unmounted.
///
/// A device with several drives is left on while another of them is in use. A drive that also holds
/// the running system, and a volume that more than one drive has, are left alone.
EjectPlan makeEjectPlan(const DiskObjects& objects, const EjectRequest& request);

} // namespace tamberline
