#pragma once

#include "model/usb_records.h"
#include "platform/macos/mount_table.h"
#include "registry/property_list.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tamberline {

/// The mounted volumes of USB devices by the device's location, 0 to 0xffffffff as the USB report
/// spells it; of one device in the order of the registry.
using VolumesByLocation = std::unordered_map<std::int64_t, std::vector<USBVolume>>;

/// Joins the media in a dump of the USB host devices with the mount table. A medium belongs to the
/// nearest device above it, not to the hubs that the device hangs on; one that the dump shows twice
/// counts where it stands first. Volumes of media that are not in the dump, and volumes whose mount
/// point is no UTF-8 and so could not be handed on as it is, are left out.
VolumesByLocation mountedVolumesIn(const PropertyList& dump, const std::vector<Mount>& mounts);

} // namespace tamberline
