#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// The PCI functions above a device, from the computer's own bus down to the device.
struct PciPath {
  std::vector<std::filesystem::path> functions = {}; // their folders

  bool isEmpty() const { return functions.empty(); }
  /// Whether the device is directly on the computer's own bus, where nothing can be plugged in.
  bool isOnRootBus() const { return functions.size() == 1; }
  /// Whether the device is behind a port that firmware marks as external, such as those of
  /// Thunderbolt and USB4.
  bool isRemovable() const;
};

/// `device` is a folder below "devices", such as the target of the link in a class.
PciPath pciPathOf(const std::filesystem::path& device);

} // namespace tamberline::sysfs
