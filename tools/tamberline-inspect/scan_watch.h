#pragma once

#include "async/main_queue.h"
#include "scan_output.h"
#include "scanner/port_scanner.h"

#include <memory>
#include <string>

namespace tamberline {

/// Prints the result of every scan that differs from the previous one. Ends the program's event
/// loop with a failure if standard output cannot be written. Outlives the event loop.
class ScanWatch {
public:
  ScanWatch(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
            OutputFormat format);

private:
  void handleScanState();
  void printIfChanged();
  std::string textWithTime() const;

  std::shared_ptr<PortScanner> scanner_;
  std::shared_ptr<MainQueue> queue_;
  OutputFormat format_;
  /// Without the time and the terminal's width, whose changes do not count.
  std::string lastResult_;
  Observation observation_;
};

} // namespace tamberline
