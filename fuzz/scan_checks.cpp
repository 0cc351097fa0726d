#include "scan_checks.h"

#include "base/shown_text.h"
#include "base/text.h"
#include "device_checks.h"
#include "document_checks.h"
#include "fuzz_target.h"
#include "inspect/document.h"
#include "inspect/panel_text.h"
#include "scanner/port_event_source.h"
#include "scanner/port_scanner.h"
#include "support/hand_driven_queue.h"
#include "views/panel_inputs.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

/// Runs one scan, with time for the second attempt if a report fails.
nlohmann::ordered_json scan(PortScanner& scanner, HandDrivenQueue& queue) {
  scanner.scan();
  queue.advance(std::chrono::milliseconds(150));
  require(!scanner.isScanning.get(), "a scan ends");
  return inspectionDocument(scanner);
}

void requireHarmlessText(const std::string& text) {
  for (const std::string_view line : split(text, '\n')) {
    require(shownText(line, line.size() + 1) == trimmed(line),
            "nothing that the panel says disturbs a terminal");
  }
}

} // namespace

void requireSoundScans(std::shared_ptr<MachineSource> machine) {
  const auto queue = std::make_shared<HandDrivenQueue>();
  const auto scanner =
      PortScanner::create({.acquisition = {.machine = std::move(machine), .queue = queue},
                           .events = std::make_shared<SilentEventSource>()});
  const nlohmann::ordered_json document = scan(*scanner, *queue);
  requireSoundDocument(document);
  requireUniqueIdentifiers(scanner->portTree.get());
  const Panel panel = describePanel(panelInputs(*scanner));
  requireHarmlessText(panelText(panel, /*useColors=*/false));
  requireHarmlessText(panelText(panel, /*useColors=*/false, /*columns=*/40));
  require(scan(*scanner, *queue) == document, "the same reports show the same");
  queue->end();
}

} // namespace tamberline
