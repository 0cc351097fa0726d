#pragma once

#include "acquisition/kept_answers.h"
#include "async/main_queue.h"
#include "platform/saved/recording.h"
#include "recording/anonymous_steps.h"
#include "scanner/port_scanner.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tamberline {

/// What a recording reports while it grows. The texts are sentences for a person, in English.
struct RecordingEvents {
  /// The name of the new step's folder.
  std::function<void(const std::string& name)> stepAdded;
  /// A change is left out; the recording goes on.
  std::function<void(const std::string& reason)> changeSkipped;
  /// Nothing more will be recorded.
  std::function<void(const std::string& reason)> ended;
};

/// Adds a step after each scan whose result differs from the one before. Main thread only; outlives
/// the queue's work.
class RecordedScans {
public:
  struct Parts {
    std::shared_ptr<PortScanner> scanner;
    /// The machine of that scanner.
    std::shared_ptr<KeptAnswers> machine;
    std::shared_ptr<MainQueue> queue;
    /// After its begin().
    Recorder recorder;
    /// If present, it replaces what identifies the machine in every step.
    std::optional<AnonymousSteps> anonymousSteps;
  };

  RecordedScans(Parts parts, RecordingEvents events);
  RecordedScans(const RecordedScans&) = delete;
  RecordedScans& operator=(const RecordedScans&) = delete;
  ~RecordedScans() = default;

private:
  void handleScanState();
  void recordIfChanged();
  void addStep();
  WriteFailure changeEarlierSteps();
  void skip(const std::string& reason) const;
  void end(const std::string& reason);

  Parts parts_;
  RecordingEvents events_;
  std::string lastResult_;
  bool hasEnded_ = false;
  Observation observation_;
};

} // namespace tamberline
