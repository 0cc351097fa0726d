#pragma once

#include "async/main_queue.h"
#include "scanner/port_scanner.h"
#include "views/panel_rows.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace tamberline {

/// The animated highlights of rows that a search jumped to. Each throbs for 5 s and fades for 0.4
/// s. At the end the scanner's highlight is cleared if it is still this row. Main thread only.
class RowPulses {
public:
  /// `onChange` is called when a pulse starts to fade and when it ends, but not by `start` and
  /// `cancel`.
  RowPulses(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
            std::function<void()> onChange);
  RowPulses(const RowPulses&) = delete;
  RowPulses& operator=(const RowPulses&) = delete;
  ~RowPulses();

  /// Restarts a pulse that the row already has.
  void start(const std::string& id);

  /// For a row that disappeared. The scanner's highlight does not change.
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
