#pragma once

#include "scanner/scanner_fixture.h"
#include "support/fake_ejector.h"
#include "support/fake_volume_files.h"
#include "support/language_scope.h"

#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// A scanner with volumes in memory and an ejector that the test controls, and what it publishes
/// about them.
class VolumeFixture : public ScannerFixture {
protected:
  void SetUp() override {
    scanner = PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                                   .events = events,
                                   .benchmark = benchmark,
                                   .ejector = ejector,
                                   .volumes = files,
                                   .now = [this] { return now; }});
    observations_.push_back(scanner->benchmarks.observe([this] { notePhases(); }));
    observations_.push_back(scanner->ejectStates.observe([this] { noteEjectStates(); }));
  }

  /// Scans a machine with one stick for each list of mount points.
  void scanSticks(const std::vector<std::vector<std::string>>& sticks);

  /// "Writing…", "failed: Volume is read-only", "W 20 R 40".
  static std::string phaseText(const BenchmarkPhase& phase);
  static std::string ejectText(const EjectState& state);

  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  std::chrono::steady_clock::time_point diskTime;
  std::shared_ptr<Benchmark> benchmark = std::make_shared<Benchmark>(
      files, Benchmark::Setting{.sizeMB = 20, .now = [this] { return diskTime; }});
  std::shared_ptr<FakeEjector> ejector = std::make_shared<FakeEjector>();
  /// One line for each publication.
  std::vector<std::string> published;

private:
  void notePhases();
  void noteEjectStates();

  std::vector<Observation> observations_;
};

} // namespace tamberline
