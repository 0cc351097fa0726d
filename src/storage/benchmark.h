#pragma once

#include "async/main_queue.h"
#include "storage/chunk_buffer.h"
#include "storage/volume_files.h"

#include <QCoro/QCoroTask>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tamberline {

enum class BenchmarkError : std::uint8_t {
  notWritable,
  noPermission,
  noSpace,
  ioError,
  volumeChanged, // another volume is mounted there now, or none
  notMeasurable, // data would be read from memory, not from the medium
};

/// The error's text for the user, in the current language.
std::string_view userText(BenchmarkError error);

/// The speed in decimal MB/s, or an error. Neither if the benchmark was stopped or could not begin.
using BenchmarkResult = std::variant<std::monostate, double, BenchmarkError>;

/// What the caller specifies for one run.
struct BenchmarkOrder {
  /// The volume that must be mounted at the mount point; absent if any volume is accepted.
  std::optional<VolumeIdentity> volume = {};
  /// Whether the run should stop. Called before each chunk, on the run's thread.
  std::function<bool()> isCancelled = [] { return false; };
  /// Called after each chunk, on the run's thread, with the completed fraction (0 to 1) of the
  /// current routine.
  std::function<void(double fraction)> progress = [](double /*fraction*/) {};
};

/// Measures the real speed of a volume: writes a file at its root sequentially and reads it again,
/// both bypassing the system's cache. The time of writing includes flushing the drive's own cache
/// to the medium.
///
/// The routines block and run on background threads: in parallel for several volumes, but only one
/// at a time for each volume. `stop` is for the end of the program.
class Benchmark {
public:
  static constexpr std::string_view fileName = ".tamberline_benchmark.tmp";
  static constexpr std::size_t chunkBytes = 0x800000;
  /// Decimal megabytes.
  static constexpr std::int64_t defaultSizeMB = 256;

  /// What tests can change.
  struct Setting {
    std::int64_t sizeMB = defaultSizeMB;
    std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
    std::function<void(ChunkBuffer&)> fill = [](ChunkBuffer& buffer) { buffer.fillRandomly(); };
  };

  explicit Benchmark(std::shared_ptr<VolumeFiles> files) : Benchmark(std::move(files), Setting{}) {}
  Benchmark(std::shared_ptr<VolumeFiles> files, Setting setting);

  /// Does not remove the file, even on failure, since `readSync` needs it. Keeps the volume's
  /// folder open until `cleanup`.
  BenchmarkResult writeSync(const std::string& mountPoint, std::int64_t sizeMB,
                            const BenchmarkOrder& order = {});

  /// Reads the whole file that `writeSync` wrote.
  BenchmarkResult readSync(const std::string& mountPoint, const BenchmarkOrder& order = {});

  /// Removes the file, even if its volume is mounted elsewhere by now. Does nothing if there is no
  /// file.
  void cleanup(const std::string& mountPoint);

  /// Stops all runs: waits until each has finished its current chunk, then removes their files. No
  /// run can begin afterwards. Any thread.
  void stop();

  std::int64_t sizeMB() const { return setting_.sizeMB; }

private:
  class ActiveRoutine;
  struct Run;

  /// Null after `stop`, which must not miss a new file.
  std::shared_ptr<Run> beginRun(const std::string& mountPoint);
  std::shared_ptr<Run> runOf(const std::string& mountPoint);
  BenchmarkResult writeInto(Run& run, std::int64_t sizeMB, const BenchmarkOrder& order);
  BenchmarkResult writeChunks(VolumeFile& file, std::int64_t totalBytes,
                              const BenchmarkOrder& order);
  BenchmarkResult readChunks(VolumeFile& file, std::int64_t totalBytes,
                             const BenchmarkOrder& order);
  bool isOver(const BenchmarkOrder& order) const { return isStopping_ || order.isCancelled(); }

  std::shared_ptr<VolumeFiles> files_;
  Setting setting_;

  std::atomic<bool> isStopping_ = false;
  std::mutex mutex_; // guards the members below
  std::condition_variable routineEnded_;
  int routineCount_ = 0;
  std::map<std::string, std::shared_ptr<Run>> runs_; // from writing to cleanup, by mount point
};

/// The routines as background tasks. There is no result if no thread can be started.
QCoro::Task<BenchmarkResult> writeTest(std::shared_ptr<Benchmark> benchmark,
                                       std::shared_ptr<MainQueue> queue, std::string mountPoint,
                                       BenchmarkOrder order = {});
QCoro::Task<BenchmarkResult> readTest(std::shared_ptr<Benchmark> benchmark,
                                      std::shared_ptr<MainQueue> queue, std::string mountPoint,
                                      BenchmarkOrder order = {});

} // namespace tamberline
