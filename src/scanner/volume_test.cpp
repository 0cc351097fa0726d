// The part of PortScanner that tests the speed of volumes.
#include "async/awaitables.h"
#include "i18n/loc.h"
#include "scanner/port_scanner.h"

#include <utility>

namespace tamberline {
namespace {

BenchmarkPhase running(std::string_view phase) {
  return {BenchmarkPhase::Running{std::string(phase)}};
}

BenchmarkPhase failed(std::string_view message) {
  return {BenchmarkPhase::Failed{std::string(message)}};
}

/// What became of a part of the test that gave no speed.
BenchmarkPhase failureOf(const BenchmarkResult& result) {
  const auto* error = std::get_if<BenchmarkError>(&result);
  return failed(error != nullptr ? userText(*error) : Loc::testFailed());
}

BenchmarkPhase finalPhase(const BenchmarkResult& write, const BenchmarkResult& read) {
  const auto* writeMBps = std::get_if<double>(&write);
  const auto* readMBps = std::get_if<double>(&read);
  if (writeMBps == nullptr) {
    return failureOf(write);
  }
  if (readMBps == nullptr) {
    return failureOf(read);
  }
  return {BenchmarkPhase::Done{*writeMBps, *readMBps}};
}

/// Removing a large file can take a slow drive a while.
InBackground<bool> fileRemoval(std::shared_ptr<Benchmark> benchmark,
                               std::shared_ptr<MainQueue> queue, std::string mountPoint) {
  return {std::move(queue), [benchmark = std::move(benchmark), mountPoint = std::move(mountPoint)] {
            benchmark->cleanup(mountPoint);
            return true;
          }};
}

} // namespace

QCoro::Task<> PortScanner::runBenchmark(std::string mountPoint) {
  return runTest(shared_from_this(), std::move(mountPoint));
}

QCoro::Task<> PortScanner::runTest(std::shared_ptr<PortScanner> self, std::string mountPoint) {
  const std::shared_ptr<MainQueue> queue = self->outside_.acquisition.queue;
  const std::shared_ptr<Benchmark> benchmark = self->outside_.benchmark;
  HopToMainThread hop(queue);
  co_await hop;
  if (benchmark == nullptr || self->isBeingTested(mountPoint)) {
    co_return;
  }
  self->publishPhase(mountPoint, running(Loc::writing()));
  auto writing = writeTest(benchmark, queue, mountPoint);
  const BenchmarkResult write = co_await writing;
  BenchmarkResult read;
  if (std::holds_alternative<double>(write)) {
    self->publishPhase(mountPoint, running(Loc::reading()));
    auto reading = readTest(benchmark, queue, mountPoint);
    read = co_await reading;
  }
  auto removal = fileRemoval(benchmark, queue, mountPoint);
  co_await removal;
  self->publishPhase(mountPoint, finalPhase(write, read));
}

bool PortScanner::isBeingTested(const std::string& mountPoint) const {
  const auto found = benchmarks.get().find(mountPoint);
  return found != benchmarks.get().end() && found->second.isRunning();
}

void PortScanner::publishPhase(const std::string& mountPoint, BenchmarkPhase phase) {
  auto phases = benchmarks.get();
  phases[mountPoint] = std::move(phase);
  benchmarks.set(std::move(phases));
}

} // namespace tamberline
