#include "platform/linux/udev/mount_table_watch.h"

#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/mounted_file_systems.h"

#include <fcntl.h>
#include <utility>

namespace tamberline {

MountTableWatch::MountTableWatch(std::filesystem::path table, std::function<void()> onChange)
    : table_(std::move(table)), onChange_(std::move(onChange)),
      descriptor_(::open(table_.c_str(), O_RDONLY | O_CLOEXEC)),
      lastMountedDevices_(mountedDevices()) {
  if (!descriptor_.isOpen()) {
    return;
  }
  // The kernel signals a change of the table as an exceptional condition of its file.
  notifier_ = std::make_unique<QSocketNotifier>(descriptor_.number(), QSocketNotifier::Exception);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { handleChange(); });
}

std::string MountTableWatch::mountedDevices() const {
  std::string devices;
  const std::string table = sysfs::readBytes(table_, sysfs::maxMountTableBytes);
  for (const sysfs::MountedFileSystem& mount : sysfs::mountedFileSystemsIn(table)) {
    if (mount.source.starts_with("/dev/") && !mount.source.starts_with("/dev/loop")) {
      devices += mount.deviceNumber + " " + mount.mountPoint + "\n";
    }
  }
  return devices;
}

void MountTableWatch::handleChange() {
  std::string devices = mountedDevices();
  if (devices != lastMountedDevices_) {
    lastMountedDevices_ = std::move(devices);
    const auto tell = onChange_; // a copy: the call may destroy the watch
    tell();
  }
}

} // namespace tamberline
