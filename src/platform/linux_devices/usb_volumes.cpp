#include "platform/linux_devices/usb_volumes.h"

#include "base/text.h"
#include "base/utf8.h"
#include "platform/linux_devices/attribute_files.h"
#include "platform/linux_devices/device_folders.h"
#include "platform/linux_devices/mounted_file_systems.h"
#include "platform/linux_devices/plain_text.h"

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostUdevBytes = 65536;

/// The nearest USB device above a block device, from the path that its entry links to.
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

/// The value of a line "KEY=value"; of one that udev wrote, with "E:" in front.
std::string propertyIn(std::string_view lines, std::string_view key) {
  for (std::string_view line : splitNonEmpty(lines, '\n')) {
    if (line.starts_with("E:")) {
      line.remove_prefix(2);
    }
    if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
      return std::string(line.substr(key.size() + 1));
    }
  }
  return {};
}

class Volumes {
public:
  explicit Volumes(const MachinePaths& paths)
      : paths_(paths), blocks_(classFolder(paths.sysfs, "block")),
        mounts_(mountedFileSystemsIn(readBytes(paths.mountTable, mostMountTableBytes))) {}

  bool isEmpty() const { return mounts_.empty(); }

  const fs::path& blocks() const { return blocks_; }

  /// The block device's own file system and what is made of the device. A device is taken once:
  /// what several devices together hold, and links in a circle.
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
  /// Where it is mounted as a whole, or else some part of it; null when it is not.
  const MountedFileSystem* mountOf(const std::string& blockName) const {
    const std::string number = readTextOrNothing(blocks_ / blockName / "dev");
    const std::string mapped = readTextOrNothing(blocks_ / blockName / "dm" / "name");
    const MountedFileSystem* part = nullptr;
    for (const MountedFileSystem& mount : mounts_) {
      // Some file systems have a device number of their own.
      const bool isMounted = (!number.empty() && mount.deviceNumber == number) ||
                             mount.source == "/dev/" + blockName ||
                             (!mapped.empty() && mount.source == "/dev/mapper/" + mapped);
      if (isMounted && mount.root == "/") {
        return &mount;
      }
      if (isMounted && part == nullptr) {
        part = &mount;
      }
    }
    return part;
  }

  /// The file system's label; without one the name of the logical volume or of the device.
  std::string labelOf(const std::string& blockName) const {
    const fs::path folder = blocks_ / blockName;
    const std::string number = readTextOrNothing(folder / "dev");
    for (const fs::path& file : {paths_.udevData / ("b" + number), folder / "uevent"}) {
      const std::string escaped = propertyIn(readBytes(file, mostUdevBytes), "ID_FS_LABEL_ENC");
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

void addVolumes(const MachinePaths& paths, UsbTopology& usb) {
  Volumes volumes(paths);
  if (volumes.isEmpty()) {
    return;
  }
  for (const std::string& name : namesIn(volumes.blocks())) {
    const auto target = linkTarget(volumes.blocks() / name);
    const UsbAddress* address = target ? usbDeviceAbove(*target, usb) : nullptr;
    if (address != nullptr) {
      volumes.take(name, usb.devices.at(*address).volumes);
    }
  }
}

} // namespace tamberline::sysfs
