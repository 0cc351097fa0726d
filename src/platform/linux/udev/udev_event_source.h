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

/// The events of udev, or of the kernel if udev does not run: USB devices, Thunderbolt routers,
/// USB-C ports and block devices on USB or Thunderbolt that come, go or change, and power supplies
/// that change. Also reports block devices that are mounted or unmounted, for which there is no
/// udev event. Events arrive on the main thread while its event loop runs, throttled so that an
/// endless stream does not delay a receiver that waits for silence. If events are unavailable, none
/// arrive.
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
  /// Whether a device can be connected to a port. Of block devices, these are only those on USB or
  /// removable PCI; others, such as loop devices, come and go all the time.
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
