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
  Answers answers = parts_.machine->answers();
  if (const auto missing = missingReport(answers)) {
    skip(*missing + " is missing");
    return;
  }
  if (parts_.anonymousSteps) {
    std::optional<Answers> anonymised = parts_.anonymousSteps->add(answers);
    if (!anonymised) {
      skip("a report cannot be parsed, so nothing could be replaced in it");
      return;
    }
    answers = std::move(*anonymised);
    if (const WriteFailure failure = changeEarlierSteps()) {
      end(*failure);
      return;
    }
  }
  if (const WriteFailure failure = parts_.recorder.add(answers, std::chrono::system_clock::now())) {
    end(*failure);
    return;
  }
  events_.stepAdded(parts_.recorder.lastName());
}

/// Before the step is written that shows what to change: no text that one step of a recording shows
/// to identify something is in another one, even if the program is killed in between.
WriteFailure RecordedScans::changeEarlierSteps() {
  AnonymousSteps& steps = *parts_.anonymousSteps;
  return steps.doesLastChangeEarlier()
             ? parts_.recorder.change([&steps](std::size_t index) { return steps.step(index); })
             : std::nullopt;
}

void RecordedScans::skip(const std::string& reason) const {
  events_.changeSkipped(reason + ", so this change is left out");
}

void RecordedScans::end(const std::string& reason) {
  hasEnded_ = true;
  events_.ended("cannot record: " + reason);
}

} // namespace tamberline
