#include "scanner/port_monitor.h"

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds eventDebounceTime{400};
constexpr std::chrono::milliseconds powerHoldTime{1500};

} // namespace

PortMonitor::PortMonitor(std::function<void()> onChange, std::shared_ptr<PortEventSource> events,
                         std::shared_ptr<MainQueue> queue)
    : onChange_(std::move(onChange)), events_(std::move(events)), queue_(std::move(queue)) {}

PortMonitor::~PortMonitor() {
  stop();
}

void PortMonitor::start() {
  events_->start({.registryChanged = [this] { scheduleRescan(); },
                  .powerChanged = [this] { handlePowerEvent(); }});
  lastOnAC_ = events_->isOnExternalPower();
}

void PortMonitor::stop() {
  cancelPending(debounceWorkItem_);
  cancelPending(powerConfirmWorkItem_);
  events_->stop();
  lastOnAC_ = std::nullopt;
}

void PortMonitor::scheduleRescan() {
  cancelPending(debounceWorkItem_);
  debounceWorkItem_ = queue_->postLater(eventDebounceTime, onChange_);
}

void PortMonitor::handlePowerEvent() {
  const bool isOnAC = events_->isOnExternalPower();
  cancelPending(powerConfirmWorkItem_);
  if (lastOnAC_ != isOnAC) {
    powerConfirmWorkItem_ =
        queue_->postLater(powerHoldTime, [this, isOnAC] { confirmPowerState(isOnAC); });
  }
}

void PortMonitor::confirmPowerState(bool isOnAC) {
  const bool hasHeldSinceEvent = events_->isOnExternalPower() == isOnAC;
  if (hasHeldSinceEvent && lastOnAC_ != isOnAC) {
    lastOnAC_ = isOnAC;
    scheduleRescan();
  }
}

void PortMonitor::cancelPending(MainQueue::WorkItem& item) {
  queue_->cancel(std::exchange(item, 0));
}

} // namespace tamberline
