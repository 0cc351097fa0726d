#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/read/pci_path.h"

#include <filesystem>
#include <map>
#include <set>

namespace tamberline::sysfs {

/// The drives that Thunderbolt and USB4 enclosures connect to the computer's PCI bus, found by
/// their block devices. Where firmware does not mark its outward PCI ports there are none.
class TunneledDrives {
public:
  explicit TunneledDrives(const std::filesystem::path& sysfs);

  /// The drive of a block device or of a partition, by its folder; null for other drives. Lives as
  /// long as this.
  Drive* driveOf(const std::filesystem::path& blockDevice);

  /// Gives each drive to the router whose enclosure it is in. The kernel does not name it: of
  /// several, it is told by the order of PCI ports and of routers where there are as many of both,
  /// and by how many bridges lead to it. A drive of which it cannot be told is left out.
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
