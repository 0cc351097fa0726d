#pragma once

#include "async/main_queue.h"
#include "scanner/port_event_source.h"

#include <functional>
#include <memory>
#include <optional>

namespace tamberline {

/// Calls its action once for a burst of attach and detach events, and once for a lasting change
/// between battery and external power. Main thread only.
class PortMonitor {
public:
  PortMonitor(std::function<void()> onChange, std::shared_ptr<PortEventSource> events,
              std::shared_ptr<MainQueue> queue);
  PortMonitor(const PortMonitor&) = delete;
  PortMonitor& operator=(const PortMonitor&) = delete;
  ~PortMonitor();

  void start();

  /// Also drops pending calls; the action does not run afterwards.
  void stop();

private:
  void scheduleRescan();
  void handlePowerEvent();
  void confirmPowerState(bool isOnAC);
  void cancelPending(MainQueue::WorkItem& item);

  std::function<void()> onChange_;
  std::shared_ptr<PortEventSource> events_;
  std::shared_ptr<MainQueue> queue_;
  MainQueue::WorkItem debounceWorkItem_ = 0;
  MainQueue::WorkItem powerConfirmWorkItem_ = 0;
  std::optional<bool> lastOnAC_; // absent until the monitor starts
};

} // namespace tamberline
