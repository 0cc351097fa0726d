#pragma once

#include <libudev.h>
#include <memory>

namespace tamberline {

struct ReleaseUdev {
  void operator()(udev* object) const { udev_unref(object); }
  void operator()(udev_device* object) const { udev_device_unref(object); }
  void operator()(udev_hwdb* object) const { udev_hwdb_unref(object); }
  void operator()(udev_monitor* object) const { udev_monitor_unref(object); }
};

/// Owns an object returned by libudev; null if it returned none.
template <typename Object>
using UdevReference = std::unique_ptr<Object, ReleaseUdev>;

} // namespace tamberline
