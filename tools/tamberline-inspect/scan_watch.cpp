#include "scan_watch.h"

#include <QCoreApplication>

#include <cstdlib>
#include <utility>

namespace tamberline {

ScanWatch::ScanWatch(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                     OutputFormat format)
    : scanner_(std::move(scanner)), queue_(std::move(queue)), format_(format),
      observation_(scanner_->isScanning.observe([this] { handleScanState(); })) {}

/// Prints on the next event-loop iteration. By then the monitor is running after the first scan, so
/// a reader of the first result misses no change.
void ScanWatch::handleScanState() {
  if (!scanner_->isScanning.get()) {
    queue_->post([this] { printIfChanged(); });
  }
}

void ScanWatch::printIfChanged() {
  std::string result = render(*scanner_, format_, TextStyle());
  if (result == lastResult_) {
    return;
  }
  reportScanError(*scanner_);
  if (!print(format_ == OutputFormat::text ? textWithTime() : result)) {
    QCoreApplication::exit(EXIT_FAILURE);
  }
  lastResult_ = std::move(result);
}

/// Ends with a blank line, which separates it from the next one's time.
std::string ScanWatch::textWithTime() const {
  const TextStyle style = styleOfStandardOutput();
  return timeHeading(style) + render(*scanner_, format_, style) + "\n";
}

} // namespace tamberline
