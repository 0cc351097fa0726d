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
  volumeChanged, // something else is mounted there now, or nothing
  notMeasurable, // what is read would come from memory
};

/// What a person reads of the error, in the language of the run.
std::string_view userText(BenchmarkError error);

/// Decimal megabytes per second, or why there are none. Neither when the benchmark was stopped or
/// could not begin.
using BenchmarkResult = std::variant<std::monostate, double, BenchmarkError>;

/// One run, as whoever asks for it knows it.
struct BenchmarkOrder {
  /// The volume that must be mounted there; absent when any will do.
  std::optional<VolumeIdentity> volume = {};
  /// Whether nobody wants the result any more. Asked before each chunk, on the run's task.
  std::function<bool()> isCancelled = [] { return false; };
  /// Told after each chunk, on the run's task, how much of the part under way is done, from 0
  /// to 1.
  std::function<void(double fraction)> progress = [](double /*fraction*/) {};
};

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
    std::function<void(ChunkBuffer&)> fill = [](ChunkBuffer& buffer) { buffer.fillRandomly(); };
  };

  explicit Benchmark(std::shared_ptr<VolumeFiles> files) : Benchmark(std::move(files), Setting{}) {}
  Benchmark(std::shared_ptr<VolumeFiles> files, Setting setting);

  /// Leaves the file where it is, for `readSync`, and also when it fails. Holds the volume's folder
  /// open until `cleanup`.
  BenchmarkResult writeSync(const std::string& mountPoint, std::int64_t sizeMB,
                            const BenchmarkOrder& order = {});

  /// Reads what `writeSync` wrote, to its end.
  BenchmarkResult readSync(const std::string& mountPoint, const BenchmarkOrder& order = {});

  /// Removes the file, wherever its volume is mounted by now; nothing happens where there is none.
  void cleanup(const std::string& mountPoint);

  /// Ends the runs under way: waits until each is through with the chunk that it is at, and
  /// removes their files. No run begins after it. Any thread.
  void stop();

  std::int64_t sizeMB() const { return setting_.sizeMB; }

private:
  class ActiveRoutine;
  struct Run;

  /// Null when the program ends, which must find no new file.
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
  std::mutex mutex_; // guards what follows
  std::condition_variable routineEnded_;
  int routineCount_ = 0;
  std::map<std::string, std::shared_ptr<Run>> runs_; // from writing to cleanup, by mount point
};

/// The routines as background tasks. A task that cannot be had gives no result.
QCoro::Task<BenchmarkResult> writeTest(std::shared_ptr<Benchmark> benchmark,
                                       std::shared_ptr<MainQueue> queue, std::string mountPoint,
                                       BenchmarkOrder order = {});
QCoro::Task<BenchmarkResult> readTest(std::shared_ptr<Benchmark> benchmark,
                                      std::shared_ptr<MainQueue> queue, std::string mountPoint,
                                      BenchmarkOrder order = {});

} // namespace tamberline
