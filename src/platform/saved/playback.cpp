#include "platform/saved/playback.h"

#include "platform/saved/saved_reports.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tamberline {
namespace {

using std::chrono::milliseconds;

/// Steps whose times are in the wrong order, because the clock was set, follow each other at once.
milliseconds timeBetween(const RecordedStep& step, const RecordedStep& next, double speed) {
  constexpr milliseconds longest = std::chrono::hours(24);
  const auto passed = std::chrono::duration_cast<milliseconds>(next.time - step.time);
  const double played = static_cast<double>(passed.count()) / speed;
  return milliseconds(static_cast<milliseconds::rep>(
      std::clamp(played, 0.0, static_cast<double>(longest.count()))));
}

} // namespace

RecordedMachine::RecordedMachine(const std::filesystem::path& step) : step_(savedMachine(step)) {}

std::string RecordedMachine::answer(Question question) {
  std::unique_lock lock(mutex_);
  const std::shared_ptr<MachineSource> step = step_;
  lock.unlock();
  return step->answer(question);
}

void RecordedMachine::show(const std::filesystem::path& step) {
  const std::lock_guard lock(mutex_);
  step_ = savedMachine(step);
}

Playback::Playback(std::vector<RecordedStep> steps, double speed, std::shared_ptr<MainQueue> queue,
                   State first)
    : steps_(std::move(steps)), speed_(speed), queue_(std::move(queue)), state_(first) {}

Playback::~Playback() {
  queue_->cancel(next_);
}

void Playback::togglePause() {
  set({state_.get().index, !state_.get().isPaused});
}

Observation Playback::observe(std::function<void()> onChange) {
  return state_.observe(std::move(onChange));
}

/// An index before the first is the largest number.
void Playback::stepTo(std::size_t index) {
  if (index < steps_.size()) {
    set({index, /*isPaused=*/true});
  }
}

void Playback::set(State state) {
  queue_->cancel(std::exchange(next_, 0));
  state_.set(state);
  scheduleNext();
}

void Playback::scheduleNext() {
  if (isAtRest()) {
    return;
  }
  const std::size_t index = state_.get().index;
  next_ = queue_->postLater(timeBetween(steps_[index], steps_[index + 1], speed_),
                            [this, after = State{index + 1}] { set(after); });
}

PlaybackScans::PlaybackScans(Playback& playback, std::shared_ptr<RecordedMachine> machine,
                             std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue)
    : playback_(playback), machine_(std::move(machine)), scanner_(std::move(scanner)),
      queue_(std::move(queue)), shownStep_(playback_.step().folder),
      ofPlayback_(playback_.observe([this] { scanIfBehind(); })),
      ofScanner_(scanner_->isScanning.observe([this] { scanIfBehind(); })) {}

bool PlaybackScans::isUpToDate() const {
  return !scanner_->isScanning.get() && shownStep_ == playback_.step().folder;
}

/// Scans on the next event-loop iteration, because an observer is called while a scan ends.
void PlaybackScans::scanIfBehind() {
  if (scanner_->isScanning.get() || shownStep_ == playback_.step().folder) {
    return;
  }
  queue_->post([this, isAlive = std::weak_ptr(isAlive_)] {
    if (!isAlive.lock() || scanner_->isScanning.get()) {
      return;
    }
    shownStep_ = playback_.step().folder;
    machine_->show(shownStep_);
    scanner_->scan();
  });
}

} // namespace tamberline
