#pragma once

#include "async/main_queue.h"
#include "platform/saved/playback.h"
#include "scanner/port_scanner.h"

#include <QObject>

#include <memory>

namespace tamberline {

/// Plays a recording into a scanner, and lets a person pause it and go step by step: Ctrl+P pauses
/// and goes on, Ctrl+N and Ctrl+B go to the next step and the one before. Prints each step with its
/// time. Filters the keys of the application, in whose windows they mean nothing else.
class RecordedMachinePlayer : public QObject {
public:
  /// `machine` shows the first step of the playback.
  RecordedMachinePlayer(std::unique_ptr<Playback> playback,
                        std::shared_ptr<RecordedMachine> machine,
                        std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue);

  /// Whether the scanner shows the step at which the playback stays.
  bool hasPlayed() const { return playback_->isAtRest() && scans_.isUpToDate(); }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void takeKey(int key);
  void printState() const;

  std::unique_ptr<Playback> playback_;
  PlaybackScans scans_;
  Observation observation_;
};

} // namespace tamberline
