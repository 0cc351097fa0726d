#pragma once

#include "scanner/port_scanner.h"

#include <memory>
#include <string>
#include <utility>

namespace tamberline {

/// Marks the drive of a volume as in use during its lifetime. Benchmarks of the drive's other
/// volumes wait for its end.
class PortScanner::DriveUse {
public:
  DriveUse(std::shared_ptr<PortScanner> scanner, std::string mountPoint)
      : scanner_(std::move(scanner)), mountPoint_(std::move(mountPoint)) {
    scanner_->usedDrives_.insert(mountPoint_);
  }
  DriveUse(const DriveUse&) = delete;
  DriveUse& operator=(const DriveUse&) = delete;
  ~DriveUse() {
    scanner_->usedDrives_.erase(mountPoint_);
    scanner_->driveIsFree_.announce();
  }

private:
  std::shared_ptr<PortScanner> scanner_;
  std::string mountPoint_;
};

} // namespace tamberline
