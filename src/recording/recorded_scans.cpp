#include "recording/recorded_scans.h"

#include "inspect/document.h"
#include "platform/saved/saved_files.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <utility>

namespace tamberline {

RecordedScans::RecordedScans(Parts parts, RecordingEvents events)
    : parts_(std::move(parts)), events_(std::move(events)),
      observation_(parts_.scanner->isScanning.observe([this] { handleScanState(); })) {}

/// On the next event-loop iteration. By then the monitor is running after the first scan, so who
/// reads the name of the first step misses no change.
void RecordedScans::handleScanState() {
  if (!parts_.scanner->isScanning.get()) {
    parts_.queue->post([this] { recordIfChanged(); });
  }
}

void RecordedScans::recordIfChanged() {
  if (hasEnded_) {
    return;
  }
  std::string result =
      inspectionDocument(*parts_.scanner)
          .dump(-1, ' ', /*ensure_ascii=*/true, nlohmann::json::error_handler_t::replace);
  if (result == lastResult_) {
    return;
  }
  lastResult_ = std::move(result);
  addStep();
}

void RecordedScans::addStep() {
  std::optional<Answers> answers = parts_.machine->answers();
  if (parts_.anonymiser) {
    answers = parts_.anonymiser->anonymised(*answers);
  }
  if (!answers || missingReport(*answers)) {
    events_.changeSkipped("a report is missing or cannot be read, so this change is left out");
    return;
  }
  if (const WriteFailure failure =
          parts_.recorder.add(*answers, std::chrono::system_clock::now())) {
    hasEnded_ = true;
    events_.ended("cannot record: " + *failure);
    return;
  }
  events_.stepAdded(parts_.recorder.lastName());
}

} // namespace tamberline
