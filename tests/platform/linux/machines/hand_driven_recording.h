#pragma once

#include "platform/saved/recording.h"
#include "platform/this_machine.h"
#include "recording/recorded_scans.h"
#include "support/hand_driven_queue.h"

#include <chrono>
#include <memory>
#include <utility>

namespace tamberline {

/// Records this machine, whose events and reports are real, while a test moves the clock.
class HandDrivenRecording {
public:
  /// `recorder` has begun.
  HandDrivenRecording(Recorder recorder, RecordingEvents events)
      : recording_({.scanner = scanner_,
                    .machine = kept_,
                    .queue = queue_,
                    .recorder = std::move(recorder),
                    .anonymousSteps = {}},
                   std::move(events)) {
    scanner_->scan();
    moveClock(std::chrono::seconds(10));
  }

  void moveClock(std::chrono::milliseconds duration) { queue_->advance(duration); }

private:
  std::shared_ptr<KeptAnswers> kept_ = std::make_shared<KeptAnswers>(sourceOfThisMachine());
  std::shared_ptr<HandDrivenQueue> queue_ = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<PortScanner> scanner_ = PortScanner::create(
      {.acquisition = {.machine = kept_, .queue = queue_}, .events = eventsOfThisMachine()});
  RecordedScans recording_;
};

} // namespace tamberline
