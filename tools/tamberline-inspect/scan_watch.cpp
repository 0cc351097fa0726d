#include "scan_watch.h"

#include "scan_output.h"

#include <QCoreApplication>

#include <cstdlib>
#include <utility>

namespace tamberline {

ScanWatch::ScanWatch(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                     InspectOptions options)
    : scanner_(std::move(scanner)), queue_(std::move(queue)), options_(std::move(options)),
      observation_(scanner_->isScanning.observe([this] { handleScanState(); })) {}

/// Prints a turn of the event loop later: after the first scan changes are watched for by then, so
/// that who has read the first result misses none.
void ScanWatch::handleScanState() {
  if (!scanner_->isScanning.get()) {
    queue_->post([this] { printWhatIsNew(); });
  }
}

void ScanWatch::printWhatIsNew() {
  std::string rendered = render(*scanner_, options_);
  if (rendered == lastPrinted_) {
    return;
  }
  reportScanError(*scanner_);
  if (!print(rendered)) {
    QCoreApplication::exit(EXIT_FAILURE);
  }
  lastPrinted_ = std::move(rendered);
}

} // namespace tamberline
