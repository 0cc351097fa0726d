#pragma once

#include "platform/linux/udisks/disk_objects.h"
#include "storage/volume_ejector.h"

#include <QString>

#include <optional>
#include <vector>

namespace tamberline {

/// A call of a method that takes only options, on an object of the disk service.
struct DiskCall {
  QString object;
  const char* interface;
  const char* method;
};

/// The calls that eject a volume; empty if the service's objects contradict each other.
struct EjectPlan {
  std::vector<DiskCall> calls = {}; // in this order; each must succeed before the next
  std::optional<EjectRefusal> refusal = {};
};

/// Plans the calls that make the drive of a mounted volume safe to unplug. They unmount all file
/// systems of the drive, starting with that of the volume, and then lock encrypted devices. Then
/// they do the first of these that the drive supports: eject the optical disc, power off the
/// device, eject the medium. Without a drive (a disk image), only the file system is unmounted.
///
/// A device with several drives stays on while another of them is in use. The plan refuses to eject
/// a drive that also holds the running system, and a volume that is on more than one drive.
EjectPlan makeEjectPlan(const DiskObjects& objects, const EjectRequest& request);

} // namespace tamberline
