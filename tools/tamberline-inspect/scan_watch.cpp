#include "scan_watch.h"

#include "scan_output.h"

#include <QCoreApplication>

#include <cstdlib>
#include <utility>

namespace tamberline {

ScanWatch::ScanWatch(std::shared_ptr<PortScanner> scanner, InspectOptions options)
    : scanner_(std::move(scanner)), options_(std::move(options)),
      observation_(scanner_->isScanning.observe([this] { handleScanState(); })) {}

void ScanWatch::handleScanState() {
  if (scanner_->isScanning.get()) {
    return;
  }
  std::string rendered = render(*scanner_, options_);
  if (rendered == lastPrinted_) {
    return;
  }
  reportScanError(*scanner_);
  if (!printScan(rendered)) {
    QCoreApplication::exit(EXIT_FAILURE);
  }
  lastPrinted_ = std::move(rendered);
}

} // namespace tamberline
