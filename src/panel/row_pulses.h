#pragma once

#include "async/main_queue.h"
#include "scanner/port_scanner.h"
#include "views/panel_rows.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace tamberline {

/// The highlights of the rows that a search led to: each throbs for 5 s, fades for 0.4 s, and then
/// gives up the scanner's highlight if that still names it. Main thread only.
class RowPulses {
public:
  /// `onChange` is called when a pulse goes on to its next phase, not when one is started or
  /// cancelled from outside.
  RowPulses(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
            std::function<void()> onChange);
  RowPulses(const RowPulses&) = delete;
  RowPulses& operator=(const RowPulses&) = delete;
  ~RowPulses();

  /// From the beginning when the row pulses already.
  void start(const std::string& id);

  /// The row disappeared; it keeps the scanner's highlight.
  void cancel(const std::string& id);

  const std::map<std::string, Pulse>& phases() const { return phases_; }

private:
  void enter(const std::string& id, Pulse phase);
  void end(const std::string& id);

  std::shared_ptr<PortScanner> scanner_;
  std::shared_ptr<MainQueue> queue_;
  std::function<void()> onChange_;
  std::map<std::string, Pulse> phases_;
  std::map<std::string, MainQueue::WorkItem> nextSteps_;
};

} // namespace tamberline
