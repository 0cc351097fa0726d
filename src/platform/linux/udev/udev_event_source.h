#pragma once

#include "platform/linux/sysfs/read/machine_reader.h"
#include "platform/linux/udev/event_throttle.h"
#include "platform/linux/udev/mount_table_watch.h"
#include "platform/linux/udev/udev_reference.h"
#include "scanner/port_event_source.h"

#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace tamberline {

/// The events of udev, or of the kernel itself where udev does not run: USB devices, Thunderbolt
/// routers, USB-C ports and block devices on either that come, go or change, and power supplies
/// that change; besides, block devices that are mounted and unmounted, of which no such event
/// tells. They arrive on the main thread while its event loop runs, paced so that events without
/// end do not keep anybody waiting for silence. Where there are no events, none arrive.
class UdevEventSource final : public PortEventSource {
public:
  explicit UdevEventSource(MachinePaths paths = {});
  UdevEventSource(const UdevEventSource&) = delete;
  UdevEventSource& operator=(const UdevEventSource&) = delete;
  ~UdevEventSource() override;

  void start(PortEvents events) override;
  void stop() override;
  bool isOnExternalPower() const override;

private:
  void takeEvents();
  /// Whether a device is one that the ports can have: of block devices only those on USB or on what
  /// can be pulled from PCI, since the others, such as loop devices, come and go all the time.
  bool concernsPorts(udev_device& device) const;

  MachinePaths paths_;
  PortEvents events_;
  UdevReference<udev> udev_;
  UdevReference<udev_monitor> monitor_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::unique_ptr<QTimer> timer_;
  std::unique_ptr<EventThrottle> registryPacer_;
  std::unique_ptr<MountTableWatch> mountTableWatch_;
};

} // namespace tamberline
