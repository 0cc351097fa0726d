#pragma once

#include "platform/linux_live/udev_reference.h"
#include "scanner/port_event_source.h"

#include <QSocketNotifier>

#include <filesystem>
#include <memory>

namespace tamberline {

/// The events of udev, or of the kernel itself where udev does not run: USB devices, Thunderbolt
/// routers, USB-C ports and block devices that come, go or change, and power supplies that change.
/// They arrive on the main thread while its event loop runs. Where there are no events, none
/// arrive.
class UdevEventSource final : public PortEventSource {
public:
  /// `sysfs` tells of the power source.
  explicit UdevEventSource(std::filesystem::path sysfs = "/sys");
  UdevEventSource(const UdevEventSource&) = delete;
  UdevEventSource& operator=(const UdevEventSource&) = delete;
  ~UdevEventSource() override;

  void start(PortEvents events) override;
  void stop() override;
  bool isOnExternalPower() const override;

private:
  void takeEvents();

  std::filesystem::path sysfs_;
  PortEvents events_;
  UdevReference<udev> udev_;
  UdevReference<udev_monitor> monitor_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tamberline
