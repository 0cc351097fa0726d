#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// The PCI functions above a device, from the bus of the computer down to the device.
struct PciPath {
  std::vector<std::filesystem::path> functions = {}; // their folders

  bool isEmpty() const { return functions.empty(); }
  /// Directly on the computer's own bus, where nothing can be plugged in.
  bool isOnRootBus() const { return functions.size() == 1; }
  /// Behind a port that firmware says faces the outside, as Thunderbolt's and USB4's do.
  bool isRemovable() const;
};

/// `device` is a folder below "devices", such as the one that an entry of a class links to.
PciPath pciPathOf(const std::filesystem::path& device);

} // namespace tamberline::sysfs
