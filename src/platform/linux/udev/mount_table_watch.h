#pragma once

#include "platform/posix/descriptor.h"

#include <QSocketNotifier>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tamberline {

/// May go while it tells. Tells on the main thread, while its event loop runs, that a block device
/// was mounted somewhere or unmounted. Other file systems (of containers, say) and loop devices
/// come and go all the time and are not told of.
class MountTableWatch {
public:
  /// The kernel's table, such as "/proc/self/mountinfo"; another file never changes.
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
