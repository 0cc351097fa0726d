#pragma once

#include "async/main_queue.h"
#include "storage/volume_files.h"

#include <QCoro/QCoroTask>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <variant>

namespace tamberline {

enum class BenchmarkError : std::uint8_t { notWritable, noSpace, ioError };

/// What a person reads of the error, in the language of the run.
std::string_view userText(BenchmarkError error);

/// Decimal megabytes per second, or why there are none. Neither when the test was stopped or could
/// not begin.
using BenchmarkResult = std::variant<std::monostate, double, BenchmarkError>;

/// Measures what a volume really does: a file at its root is written and read from one end to the
/// other, past the system's cache, and what the drive keeps back counts as written only once the
/// medium has it.
///
/// The blocking routines run on background tasks, for several volumes at once, but not twice at
/// once for one. `stop` is for the end of the program.
class Benchmark {
public:
  static constexpr std::string_view fileName = ".tamberline_benchmark.tmp";
  static constexpr std::size_t chunkBytes = 0x800000;
  /// Decimal megabytes.
  static constexpr std::int64_t defaultSizeMB = 256;

  /// What a test can change.
  struct Setting {
    std::int64_t sizeMB = defaultSizeMB;
    std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
  };

  explicit Benchmark(std::shared_ptr<VolumeFiles> files) : Benchmark(std::move(files), Setting{}) {}
  Benchmark(std::shared_ptr<VolumeFiles> files, Setting setting);

  /// Leaves the file where it is, for `readSync`, and also when it fails.
  BenchmarkResult writeSync(const std::string& mountPoint, std::int64_t sizeMB);

  /// Reads what `writeSync` wrote, to its end.
  BenchmarkResult readSync(const std::string& mountPoint);

  /// Removes the file; nothing happens where there is none.
  void cleanup(const std::string& mountPoint);

  /// Ends the tests under way: waits until each is through with the chunk that it is at, and
  /// removes their files. No test begins after it. Any thread.
  void stop();

  std::int64_t sizeMB() const { return setting_.sizeMB; }

private:
  class Visit;

  BenchmarkResult writeChunks(VolumeFile& file, std::int64_t totalBytes);
  BenchmarkResult readChunks(VolumeFile& file);

  std::shared_ptr<VolumeFiles> files_;
  Setting setting_;

  std::atomic<bool> isStopping_ = false;
  std::mutex mutex_; // guards what follows
  std::condition_variable visitEnded_;
  int visitCount_ = 0; // routines under way
  std::set<std::string> mountPointsWithFile_;
};

/// The routines as background tasks. A task that cannot be had gives no result.
QCoro::Task<BenchmarkResult> writeTest(std::shared_ptr<Benchmark> benchmark,
                                       std::shared_ptr<MainQueue> queue, std::string mountPoint);
QCoro::Task<BenchmarkResult> readTest(std::shared_ptr<Benchmark> benchmark,
                                      std::shared_ptr<MainQueue> queue, std::string mountPoint);

} // namespace tamberline
