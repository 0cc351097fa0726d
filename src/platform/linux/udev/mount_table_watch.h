#pragma once

#include "platform/posix/descriptor.h"

#include <QSocketNotifier>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tamberline {

/// Calls back on the main thread, while its event loop runs, when a block device is mounted or
/// unmounted. Other file systems, such as those of containers, and loop devices are ignored because
/// they come and go all the time. The callback may destroy the watch.
class MountTableWatch {
public:
  /// `table` is the kernel's mount table, such as "/proc/self/mountinfo"; any other file never
  /// reports a change.
  MountTableWatch(std::filesystem::path table, std::function<void()> onChange);
  MountTableWatch(const MountTableWatch&) = delete;
  MountTableWatch& operator=(const MountTableWatch&) = delete;
  ~MountTableWatch() = default;

private:
  std::string mountedDevices() const;
  void handleChange();

  std::filesystem::path table_;
  std::function<void()> onChange_;
  Descriptor descriptor_;
  std::string lastMountedDevices_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tamberline
