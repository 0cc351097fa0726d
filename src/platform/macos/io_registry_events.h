#pragma once

#include "platform/macos/cf_reference.h"
#include "scanner/port_event_source.h"

#include <IOKit/IOKitLib.h>
#include <vector>

namespace tamberline {

/// The events of a Mac: USB devices and Thunderbolt switches that appear in the I/O registry or
/// leave it, and changes of the power source. They arrive on the main thread while its event loop
/// runs. Notifications that the system refuses are left out; the others work.
class IORegistryEvents final : public PortEventSource {
public:
  IORegistryEvents() = default;
  IORegistryEvents(const IORegistryEvents&) = delete;
  IORegistryEvents& operator=(const IORegistryEvents&) = delete;
  ~IORegistryEvents() override;

  void start(PortEvents events) override;
  void stop() override;
  bool isOnExternalPower() const override;

private:
  void watchRegistry();
  void watch(const char* notificationType, const char* className);
  void watchPowerSource();

  static void takeRegistryChange(void* self, io_iterator_t iterator);
  static void takePowerChange(void* self);

  PortEvents events_;
  IONotificationPortRef notificationPort_ = nullptr;
  std::vector<io_iterator_t> iterators_;
  CFReference<CFRunLoopSourceRef> powerSource_;
};

} // namespace tamberline
