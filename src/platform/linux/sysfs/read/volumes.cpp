#include "base/text.h"
#include "base/utf8.h"
#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_folders.h"
#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/read/mounted_file_systems.h"
#include "platform/linux/sysfs/read/plain_text.h"
#include "platform/linux/sysfs/read/tunneled_drives.h"
#include "platform/linux/sysfs/read/udev_properties.h"

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

/// The nearest USB device above a block device, from the target of its link.
const UsbAddress* usbDeviceAbove(const fs::path& blockDevice, const UsbTopology& usb) {
  const UsbAddress* nearest = nullptr;
  for (const fs::path& part : blockDevice) {
    const auto address = usbAddressOf(part.string());
    const auto found = address ? usb.devices.find(*address) : usb.devices.end();
    if (found != usb.devices.end()) {
      nearest = &found->first;
    }
  }
  return nearest;
}

constexpr std::size_t maxEventBytes = 65536;

class Volumes {
public:
  explicit Volumes(const MachinePaths& paths)
      : paths_(paths), blocks_(classFolder(paths.sysfs, "block")),
        mounts_(mountedFileSystemsIn(readBytes(paths.mountTable, maxMountTableBytes))) {}

  const fs::path& blocks() const { return blocks_; }

  /// Adds the volumes on a block device and on the devices built on it. Each device is visited
  /// once, because several devices can share a holder and links can form a cycle.
  void take(const std::string& blockName, std::vector<Volume>& volumes) {
    if (!taken_.insert(blockName).second) {
      return;
    }
    if (const MountedFileSystem* mount = mountOf(blockName)) {
      if (isValidUtf8(mount->mountPoint)) {
        volumes.push_back({labelOf(blockName), mount->mountPoint});
      }
    }
    for (const std::string& holder : namesIn(blocks_ / blockName / "holders")) {
      take(holder, volumes);
    }
  }

private:
  /// The mount of the whole file system, or else of a part of it; null if it is not mounted.
  const MountedFileSystem* mountOf(const std::string& blockName) const {
    const BlockDeviceNames names = {readTextOrNothing(blocks_ / blockName / "dev"), blockName,
                                    readTextOrNothing(blocks_ / blockName / "dm" / "name")};
    const MountedFileSystem* part = nullptr;
    for (const MountedFileSystem& mount : mounts_) {
      const bool isMounted = isOn(mount, names);
      if (isMounted && mount.root == "/") {
        return &mount;
      }
      if (isMounted && part == nullptr) {
        part = &mount;
      }
    }
    return part;
  }

  /// The file system's label, or else the name of the logical volume or the device.
  std::string labelOf(const std::string& blockName) const {
    const fs::path folder = blocks_ / blockName;
    const std::string number = readTextOrNothing(folder / "dev");
    for (const std::string& record :
         {udevRecord(paths_.udevData, "b" + number), readBytes(folder / "uevent", maxEventBytes)}) {
      const std::string escaped = propertyIn(record, "ID_FS_LABEL_ENC");
      if (std::string label = plainText(withoutHexEscapes(escaped)); !label.empty()) {
        return label;
      }
    }
    return readText(folder / "dm" / "name").value_or(plainText(blockName));
  }

  const MachinePaths& paths_;
  fs::path blocks_;
  std::vector<MountedFileSystem> mounts_;
  std::set<std::string> taken_;
};

} // namespace

void addVolumes(const MachinePaths& paths, Machine& machine) {
  Volumes volumes(paths);
  TunneledDrives drives(paths.sysfs);
  for (const std::string& name : namesIn(volumes.blocks())) {
    const auto target = linkTarget(volumes.blocks() / name);
    if (!target) {
      continue;
    }
    if (const UsbAddress* address = usbDeviceAbove(*target, machine.usb)) {
      volumes.take(name, machine.usb.devices.at(*address).volumes);
    } else if (Drive* drive = drives.driveOf(volumes.blocks() / *target)) {
      volumes.take(name, drive->volumes);
    }
  }
  std::move(drives).giveTo(machine.thunderbolt);
}

} // namespace tamberline::sysfs
