#include "platform/linux/udev/udev_event_source.h"

#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/read/pci_path.h"

#include <array>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

struct WatchedSubsystem {
  const char* name;
  const char* deviceType; // null for all
};

/// USB interfaces are left out: their events add nothing to those of the device.
constexpr std::array<WatchedSubsystem, 5> watchedSubsystems = {{
    {"usb", "usb_device"},
    {"thunderbolt", nullptr},
    {"typec", nullptr},
    {"block", nullptr},
    {"power_supply", nullptr},
}};

constexpr std::string_view powerSupplies = "power_supply";
constexpr std::string_view blockDevices = "block";

/// udev sends an event after its rules have processed the device. Without udev, the kernel's own
/// events are used.
const char* eventSender() {
  return sysfs::doesExist("/run/udev/control") ? "udev" : "kernel";
}

/// Null if events are unavailable.
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
  timer_ = std::make_unique<QTimer>();
  timer_->setSingleShot(true);
  timer_->setTimerType(Qt::PreciseTimer);
  registryPacer_ = std::make_unique<EventThrottle>(
      events_.registryChanged, EventThrottle::Clock::now,
      [this](std::chrono::milliseconds delay, std::function<void()> call) {
        timer_->callOnTimeout(timer_.get(), std::move(call), Qt::SingleShotConnection);
        timer_->start(delay);
      });
  mountTableWatch_ =
      std::make_unique<MountTableWatch>(paths_.mountTable, [this] { registryPacer_->take(); });
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
  timer_.reset();
  registryPacer_.reset();
  monitor_.reset();
  udev_.reset();
  events_ = {};
}

bool UdevEventSource::isOnExternalPower() const {
  return sysfs::isOnExternalPower(paths_.sysfs);
}

/// Reads all pending events and reports each kind of change once. The socket is nonblocking.
void UdevEventSource::takeEvents() {
  bool didRegistryChange = false;
  bool didPowerChange = false;
  while (const UdevReference<udev_device> device{udev_monitor_receive_device(monitor_.get())}) {
    const char* subsystem = udev_device_get_subsystem(device.get());
    const bool isPower = subsystem != nullptr && subsystem == powerSupplies;
    didPowerChange = didPowerChange || isPower;
    didRegistryChange = didRegistryChange || (!isPower && concernsPorts(*device));
  }
  const std::function<void()> powerChanged = events_.powerChanged; // a copy: take() may stop this
  if (didRegistryChange) {
    registryPacer_->take();
  }
  if (didPowerChange && powerChanged) {
    powerChanged();
  }
}

bool UdevEventSource::concernsPorts(udev_device& device) const {
  const std::string_view subsystem = udev_device_get_subsystem(&device);
  if (subsystem != blockDevices) {
    return true;
  }
  const char* path = udev_device_get_devpath(&device);
  if (path == nullptr) {
    return true;
  }
  return std::string_view(path).find("/usb") != std::string_view::npos ||
         sysfs::pciPathOf(paths_.sysfs.string() + path).isRemovable();
}

} // namespace tamberline
