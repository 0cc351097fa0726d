#include "platform/macos/io_registry_events.h"

#include <IOKit/ps/IOPowerSources.h>
#include <dispatch/dispatch.h>
#include <utility>

namespace tamberline {
namespace {

/// Also arms the notification: the system reports nothing new until the iterator is empty.
void drain(io_iterator_t iterator) {
  while (const io_object_t object = IOIteratorNext(iterator)) {
    IOObjectRelease(object);
  }
}

} // namespace

IORegistryEvents::~IORegistryEvents() {
  stop();
}

void IORegistryEvents::start(PortEvents events) {
  stop();
  events_ = std::move(events);
  watchRegistry();
  watchPowerSource();
}

void IORegistryEvents::stop() {
  if (powerSource_) {
    CFRunLoopRemoveSource(CFRunLoopGetMain(), powerSource_.get(), kCFRunLoopDefaultMode);
    powerSource_.reset();
  }
  for (const io_iterator_t iterator : std::exchange(iterators_, {})) {
    IOObjectRelease(iterator);
  }
  if (notificationPort_ != nullptr) {
    IONotificationPortDestroy(std::exchange(notificationPort_, nullptr));
  }
  events_ = {};
}

bool IORegistryEvents::isOnExternalPower() const {
  return IOPSGetTimeRemainingEstimate() == kIOPSTimeRemainingUnlimited;
}

void IORegistryEvents::watchRegistry() {
  notificationPort_ = IONotificationPortCreate(kIOMainPortDefault);
  if (notificationPort_ == nullptr) {
    return;
  }
  IONotificationPortSetDispatchQueue(notificationPort_, dispatch_get_main_queue());
  for (const char* notificationType : {kIOMatchedNotification, kIOTerminatedNotification}) {
    for (const char* className : {"IOUSBHostDevice", "IOUSBDevice", "IOThunderboltSwitch"}) {
      watch(notificationType, className);
    }
  }
}

void IORegistryEvents::watch(const char* notificationType, const char* className) {
  io_iterator_t iterator = IO_OBJECT_NULL;
  // The call takes ownership of the dictionary that IOServiceMatching returns.
  const kern_return_t result = IOServiceAddMatchingNotification(
      notificationPort_, notificationType, IOServiceMatching(className), takeRegistryChange, this,
      &iterator);
  if (result == KERN_SUCCESS) {
    iterators_.push_back(iterator);
    drain(iterator); // already attached devices are not changes
  }
}

void IORegistryEvents::watchPowerSource() {
  powerSource_.reset(IOPSNotificationCreateRunLoopSource(takePowerChange, this));
  if (powerSource_) {
    CFRunLoopAddSource(CFRunLoopGetMain(), powerSource_.get(), kCFRunLoopDefaultMode);
  }
}

void IORegistryEvents::takeRegistryChange(void* self, io_iterator_t iterator) {
  drain(iterator);
  static_cast<IORegistryEvents*>(self)->events_.registryChanged();
}

void IORegistryEvents::takePowerChange(void* self) {
  static_cast<IORegistryEvents*>(self)->events_.powerChanged();
}

} // namespace tamberline
