#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/pci_path.h"

#include <filesystem>
#include <map>
#include <set>

namespace tamberline::sysfs {

/// The drives that Thunderbolt and USB4 enclosures connect to the computer's PCI bus, found through
/// their block devices. There are none if firmware does not mark external PCI ports.
class TunneledDrives {
public:
  explicit TunneledDrives(const std::filesystem::path& sysfs);

  /// The drive with this block device or partition, given by its folder; null for drives that are
  /// not tunneled. The pointer is valid as long as this object.
  Drive* driveOf(const std::filesystem::path& blockDevice);

  /// Adds each drive to the router of the enclosure that it is in. The kernel does not report the
  /// router. If there are several, it is found by the order of PCI ports and routers, provided that
  /// there are equally many, and by the number of bridges above the drive. A drive whose router
  /// remains unknown is left out.
  void giveTo(ThunderboltTopology& thunderbolt) &&;

private:
  struct PlacedDrive {
    PciPath path;
    Drive drive;
  };

  std::set<std::filesystem::path> tunnels_; // the computer's PCI ports with something behind them
  std::map<std::filesystem::path, PlacedDrive> drives_; // by the folder of the whole drive
};

} // namespace tamberline::sysfs
