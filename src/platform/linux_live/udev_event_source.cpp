#include "platform/linux_live/udev_event_source.h"

#include "platform/linux_devices/attribute_files.h"
#include "platform/linux_devices/power_supply_reader.h"

#include <array>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

struct WatchedSubsystem {
  const char* name;
  const char* deviceType; // null for all
};

/// Of USB devices their interfaces tell nothing more.
constexpr std::array<WatchedSubsystem, 5> watchedSubsystems = {{
    {"usb", "usb_device"},
    {"thunderbolt", nullptr},
    {"typec", nullptr},
    {"block", nullptr},
    {"power_supply", nullptr},
}};

constexpr const char* powerSupplies = "power_supply";

/// udev passes events on when its rules are through with a device; without it the kernel's own have
/// to do.
const char* eventSender() {
  return sysfs::doesExist("/run/udev/control") ? "udev" : "kernel";
}

/// Null when there are no events to be had.
UdevReference<udev_monitor> makeMonitor(udev* context) {
  UdevReference<udev_monitor> monitor(
      context == nullptr ? nullptr : udev_monitor_new_from_netlink(context, eventSender()));
  if (monitor == nullptr) {
    return nullptr;
  }
  for (const WatchedSubsystem& subsystem : watchedSubsystems) {
    udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), subsystem.name,
                                                    subsystem.deviceType);
  }
  return udev_monitor_enable_receiving(monitor.get()) < 0 ? nullptr : std::move(monitor);
}

} // namespace

UdevEventSource::UdevEventSource(MachinePaths paths) : paths_(std::move(paths)) {}

UdevEventSource::~UdevEventSource() {
  stop();
}

void UdevEventSource::start(PortEvents events) {
  stop();
  events_ = std::move(events);
  mountTableWatch_ = std::make_unique<MountTableWatch>(paths_.mountTable, events_.registryChanged);
  udev_.reset(udev_new());
  monitor_ = makeMonitor(udev_.get());
  if (monitor_ != nullptr) {
    notifier_ = std::make_unique<QSocketNotifier>(udev_monitor_get_fd(monitor_.get()),
                                                  QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { takeEvents(); });
  }
}

void UdevEventSource::stop() {
  notifier_.reset();
  mountTableWatch_.reset();
  monitor_.reset();
  udev_.reset();
  events_ = {};
}

bool UdevEventSource::isOnExternalPower() const {
  return sysfs::isOnExternalPower(paths_.sysfs);
}

/// Takes all that wait and tells of them once. The socket never blocks.
void UdevEventSource::takeEvents() {
  bool didRegistryChange = false;
  bool didPowerChange = false;
  while (const UdevReference<udev_device> device{udev_monitor_receive_device(monitor_.get())}) {
    const char* subsystem = udev_device_get_subsystem(device.get());
    const bool isPower = subsystem != nullptr && std::string_view(subsystem) == powerSupplies;
    didPowerChange = didPowerChange || isPower;
    didRegistryChange = didRegistryChange || !isPower;
  }
  const PortEvents events = events_; // which may stop the source
  if (didRegistryChange && events.registryChanged) {
    events.registryChanged();
  }
  if (didPowerChange && events.powerChanged) {
    events.powerChanged();
  }
}

} // namespace tamberline
