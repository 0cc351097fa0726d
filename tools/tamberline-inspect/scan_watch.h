#pragma once

#include "inspect_options.h"
#include "scanner/port_scanner.h"

#include <memory>
#include <string>

namespace tamberline {

/// Prints the result of every scan that differs from the one before. Ends the program's event loop
/// with a failure when standard output takes no more.
class ScanWatch {
public:
  ScanWatch(std::shared_ptr<PortScanner> scanner, InspectOptions options);

private:
  void handleScanState();

  std::shared_ptr<PortScanner> scanner_;
  InspectOptions options_;
  std::string lastPrinted_;
  Observation observation_;
};

} // namespace tamberline
