#pragma once

#include "model/usb_records.h"
#include "platform/macos/mount_table.h"
#include "registry/property_list.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tamberline {

/// The mounted volumes of USB devices by the device's location, which is 0 to 0xffffffff as in the
/// USB report. The volumes of one device are in the order of the registry.
using VolumesByLocation = std::unordered_map<std::int64_t, std::vector<USBVolume>>;

/// Joins the media in a dump of the USB host devices with the mount table. A medium belongs to the
/// nearest device above it, not to the hubs above that device. If the dump contains a medium twice,
/// the first occurrence counts. Volumes of media that are not in the dump are left out, and so are
/// volumes whose mount point is invalid UTF-8, because reports cannot hold it.
VolumesByLocation mountedVolumesIn(const PropertyList& dump, const std::vector<Mount>& mounts);

} // namespace tamberline
