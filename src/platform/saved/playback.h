#pragma once

#include "acquisition/machine_source.h"
#include "async/main_queue.h"
#include "platform/saved/recording.h"
#include "scanner/observable_field.h"
#include "scanner/port_scanner.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tamberline {

/// Answers from the folder of one step of a recording. The step changes between two scans, so that
/// all answers of a scan are from the same step.
class RecordedMachine final : public MachineSource {
public:
  explicit RecordedMachine(const std::filesystem::path& step);

  std::string answer(Question question) override;
  void show(const std::filesystem::path& step);

private:
  std::mutex mutex_; // background tasks of a scan ask at the same time
  std::shared_ptr<MachineSource> step_;
};

/// Plays the steps of a recording in the time that passed between them. Main thread only.
class Playback {
public:
  struct State {
    std::size_t index = 0; // of the step
    bool isPaused = false;

    bool operator==(const State&) const = default;
  };

  /// `speed` divides the time between two steps. `first` is a step that there is.
  Playback(std::vector<RecordedStep> steps, double speed, std::shared_ptr<MainQueue> queue,
           State first);
  Playback(const Playback&) = delete;
  Playback& operator=(const Playback&) = delete;
  ~Playback();

  /// Nothing moves before.
  void start() { set(state_.get()); }
  /// After a pause the whole time up to the next step passes again.
  void togglePause();
  /// Goes to the next step or the one before, and pauses. Does nothing beyond both ends.
  void stepForward() { stepTo(state_.get().index + 1); }
  void stepBack() { stepTo(state_.get().index - 1); }

  const ObservableField<State>& state() const { return state_; }
  [[nodiscard]] Observation observe(std::function<void()> onChange);
  const RecordedStep& step() const { return steps_.at(state_.get().index); }
  std::size_t stepCount() const { return steps_.size(); }
  /// Whether no further step comes by itself.
  bool isAtRest() const { return state_.get().isPaused || state_.get().index + 1 >= stepCount(); }

private:
  void stepTo(std::size_t index);
  void set(State state);
  void scheduleNext();

  std::vector<RecordedStep> steps_;
  double speed_;
  std::shared_ptr<MainQueue> queue_;
  ObservableField<State> state_;
  MainQueue::WorkItem next_ = 0;
};

/// Scans the machine of a recording again after each step.
class PlaybackScans {
public:
  PlaybackScans(Playback& playback, std::shared_ptr<RecordedMachine> machine,
                std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue);

  /// Whether the scanner shows the step of the playback.
  bool isUpToDate() const;

private:
  void scanIfBehind();

  Playback& playback_;
  std::shared_ptr<RecordedMachine> machine_;
  std::shared_ptr<PortScanner> scanner_;
  std::shared_ptr<MainQueue> queue_;
  std::filesystem::path shownStep_;
  std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
  Observation ofPlayback_;
  Observation ofScanner_;
};

} // namespace tamberline
