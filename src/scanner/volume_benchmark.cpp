// The part of PortScanner that measures the speed of volumes.
#include "async/awaitables.h"
#include "i18n/loc.h"
#include "scanner/drive_use.h"
#include "scanner/port_scanner.h"

#include <atomic>
#include <exception>
#include <optional>
#include <utility>

namespace tamberline {
namespace {

BenchmarkPhase running(std::string_view phase) {
  return {BenchmarkPhase::Running{std::string(phase)}};
}

BenchmarkPhase failed(std::string_view message) {
  return {BenchmarkPhase::Failed{std::string(message)}};
}

/// The final phase for a write or read test without a speed.
BenchmarkPhase failureOf(const BenchmarkResult& result, bool isCancelled) {
  if (const auto* error = std::get_if<BenchmarkError>(&result)) {
    return failed(userText(*error));
  }
  return isCancelled ? BenchmarkPhase{} : failed(Loc::testFailed());
}

BenchmarkPhase finalPhase(const BenchmarkResult& write, const BenchmarkResult& read,
                          bool isCancelled) {
  const auto* writeMBps = std::get_if<double>(&write);
  const auto* readMBps = std::get_if<double>(&read);
  if (writeMBps == nullptr) {
    return failureOf(write, isCancelled);
  }
  if (readMBps == nullptr) {
    return failureOf(read, isCancelled);
  }
  return {BenchmarkPhase::Done{*writeMBps, *readMBps}};
}

/// In steps of 5 %, because each change redraws the row.
int percentOf(double fraction) {
  constexpr int step = 5;
  return static_cast<int>(fraction * 100 / step) * step;
}

/// In the background, because removing a large file can take a while on a slow drive.
InBackground<bool> fileRemoval(std::shared_ptr<Benchmark> benchmark,
                               std::shared_ptr<MainQueue> queue, std::string mountPoint) {
  return {std::move(queue), [benchmark = std::move(benchmark), mountPoint = std::move(mountPoint)] {
            benchmark->cleanup(mountPoint);
            return true;
          }};
}

} // namespace

/// Shared with the background task of the benchmark.
struct PortScanner::ActiveRun {
  std::optional<VolumeIdentity> volume; // absent if it was not identified
  std::atomic<bool> isCancelled = false;
};

QCoro::Task<> PortScanner::runBenchmark(std::string mountPoint) {
  return performRun(shared_from_this(), std::move(mountPoint));
}

void PortScanner::stopBenchmark(const std::string& mountPoint) {
  const auto found = activeRuns_.find(mountPoint);
  if (found != activeRuns_.end()) {
    found->second->isCancelled = true;
    driveIsFree_.announce(); // wakes the benchmark if it is waiting
  }
}

QCoro::Task<> PortScanner::performRun(std::shared_ptr<PortScanner> self, std::string mountPoint) {
  const std::shared_ptr<MainQueue> queue = self->outside_.acquisition.queue;
  const std::shared_ptr<Benchmark> benchmark = self->outside_.benchmark;
  HopToMainThread hop(queue);
  co_await hop;
  if (benchmark == nullptr || self->isBeingMeasured(mountPoint)) {
    co_return;
  }
  const auto run = std::make_shared<ActiveRun>();
  self->activeRuns_[mountPoint] = run;
  std::optional<DriveUse> driveUse;
  BenchmarkPhase phase = failed(Loc::testFailed());
  try {
    auto waiting = waitForDrive(self, mountPoint, run);
    if (co_await waiting) {
      driveUse.emplace(self, mountPoint);
      auto measuring = measure(self, mountPoint, run);
      phase = co_await measuring;
    } else {
      phase = BenchmarkPhase{};
    }
  } catch (const std::exception&) { // such as std::bad_alloc: the phase stays "failed"
  }
  if (driveUse) {
    auto removal = fileRemoval(benchmark, queue, mountPoint);
    co_await removal;
  }
  self->endRun(mountPoint, *run, std::move(phase));
}

/// Waits until the drive is free. False if the benchmark was stopped or its volume disappeared.
QCoro::Task<bool> PortScanner::waitForDrive(std::shared_ptr<PortScanner> self,
                                            std::string mountPoint,
                                            std::shared_ptr<ActiveRun> run) {
  if (!self->isDriveInUse(mountPoint)) {
    co_return true;
  }
  const bool wasShown = self->isShown(mountPoint);
  self->publishPhase(mountPoint, running(Loc::waitingForDrive()));
  while (self->isDriveInUse(mountPoint) && !run->isCancelled) {
    Announcement::Wait change(self->driveIsFree_);
    co_await change;
  }
  co_return !run->isCancelled && (self->isShown(mountPoint) || !wasShown);
}

QCoro::Task<BenchmarkPhase> PortScanner::measure(std::shared_ptr<PortScanner> self,
                                                 std::string mountPoint,
                                                 std::shared_ptr<ActiveRun> run) {
  const std::shared_ptr<MainQueue> queue = self->outside_.acquisition.queue;
  const std::shared_ptr<Benchmark> benchmark = self->outside_.benchmark;
  run->volume = self->identityOf(mountPoint);
  self->publishPhase(mountPoint, running(Loc::writing()));
  auto writing = writeTest(benchmark, queue, mountPoint, self->orderOf(mountPoint, run));
  const BenchmarkResult write = co_await writing;
  BenchmarkResult read;
  if (std::holds_alternative<double>(write)) {
    self->publishPhase(mountPoint, running(Loc::reading()));
    auto reading = readTest(benchmark, queue, mountPoint, self->orderOf(mountPoint, run));
    read = co_await reading;
  }
  co_return finalPhase(write, read, run->isCancelled);
}

/// Holds the queue weakly, because a background task must not be the last owner that releases it.
BenchmarkOrder PortScanner::orderOf(const std::string& mountPoint,
                                    const std::shared_ptr<ActiveRun>& run) {
  const std::weak_ptr<MainQueue> weakQueue = outside_.acquisition.queue;
  const auto tell = [weakQueue, mountPoint, weakSelf = weak_from_this(),
                     last = 0](double fraction) mutable {
    const int percent = percentOf(fraction);
    const std::shared_ptr<MainQueue> queue = weakQueue.lock();
    if (queue && std::exchange(last, percent) != percent) {
      queue->post([weakSelf, mountPoint, percent] {
        if (const std::shared_ptr<PortScanner> self = weakSelf.lock()) {
          self->publishProgress(mountPoint, percent);
        }
      });
    }
  };
  return {.volume = run->volume,
          .isCancelled = [run] { return run->isCancelled.load(); },
          .progress = tell};
}

void PortScanner::endRun(const std::string& mountPoint, const ActiveRun& run,
                         BenchmarkPhase phase) {
  activeRuns_.erase(mountPoint);
  if (run.volume) {
    measuredVolumes_[mountPoint] = *run.volume;
  }
  publishPhase(mountPoint, std::move(phase));
}

bool PortScanner::isBeingMeasured(const std::string& mountPoint) const {
  const auto found = benchmarks.get().find(mountPoint);
  return found != benchmarks.get().end() && found->second.isRunning();
}

void PortScanner::publishPhase(const std::string& mountPoint, BenchmarkPhase phase) {
  publishProgress(mountPoint, std::nullopt);
  auto phases = benchmarks.get();
  phases.erase(mountPoint);
  if (!std::holds_alternative<BenchmarkPhase::Idle>(phase.state)) {
    phases.emplace(mountPoint, std::move(phase));
  }
  benchmarks.set(std::move(phases));
}

/// `percent` is absent at the beginning of each phase and at the end.
void PortScanner::publishProgress(const std::string& mountPoint, std::optional<int> percent) {
  auto progress = testProgress.get();
  progress.erase(mountPoint);
  if (percent && activeRuns_.contains(mountPoint)) {
    progress.emplace(mountPoint, *percent);
  }
  testProgress.set(std::move(progress));
}

} // namespace tamberline
