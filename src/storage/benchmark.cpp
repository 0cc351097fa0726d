#include "storage/benchmark.h"

#include "async/awaitables.h"
#include "i18n/loc.h"
#include "storage/chunk_buffer.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tamberline {
namespace {

constexpr std::int64_t bytesPerMB = 1'000'000;
/// What stays free beside the test's file, so that a test never fills a volume.
constexpr std::int64_t reserveMB = 128;

/// Empty for an empty mount point, which must not stand for the volume of the system.
std::string pathAt(const std::string& mountPoint) {
  return mountPoint.empty() ? "" : mountPoint + "/" + std::string(Benchmark::fileName);
}

double speedMBps(std::int64_t bytes, std::chrono::steady_clock::duration elapsed) {
  const double seconds = std::chrono::duration<double>(elapsed).count();
  return seconds > 0 ? static_cast<double>(bytes) / bytesPerMB / seconds : 0;
}

bool hasRoomFor(VolumeFiles& files, const std::string& mountPoint, std::int64_t sizeMB) {
  const std::optional<std::uint64_t> freeBytes = files.freeBytes(mountPoint);
  return !freeBytes || *freeBytes >= static_cast<std::uint64_t>((sizeMB + reserveMB) * bytesPerMB);
}

} // namespace

std::string_view userText(BenchmarkError error) {
  switch (error) {
  case BenchmarkError::notWritable:
    return Loc::benchReadOnly();
  case BenchmarkError::noSpace:
    return Loc::benchNoSpace();
  case BenchmarkError::ioError:
    return Loc::benchIOError();
  }
  return Loc::testFailed();
}

/// A routine under way, which `stop` waits for.
class Benchmark::Visit {
public:
  explicit Visit(Benchmark& benchmark) : benchmark_(benchmark) {
    const std::lock_guard lock(benchmark_.mutex_);
    ++benchmark_.visitCount_;
  }
  Visit(const Visit&) = delete;
  Visit& operator=(const Visit&) = delete;
  ~Visit() {
    const std::lock_guard lock(benchmark_.mutex_);
    --benchmark_.visitCount_;
    benchmark_.visitEnded_.notify_all();
  }

  /// From now on the volume may have the file. False when the program ends, which must find no new
  /// one.
  bool announceFile(const std::string& mountPoint) {
    const std::lock_guard lock(benchmark_.mutex_);
    if (benchmark_.isStopping_) {
      return false;
    }
    benchmark_.mountPointsWithFile_.insert(mountPoint);
    return true;
  }

private:
  Benchmark& benchmark_;
};

Benchmark::Benchmark(std::shared_ptr<VolumeFiles> files, Setting setting)
    : files_(std::move(files)), setting_(std::move(setting)) {}

BenchmarkResult Benchmark::writeSync(const std::string& mountPoint, std::int64_t sizeMB) {
  Visit visit(*this);
  if (!hasRoomFor(*files_, mountPoint, sizeMB)) {
    return BenchmarkError::noSpace;
  }
  if (!visit.announceFile(mountPoint)) {
    return {};
  }
  const std::unique_ptr<VolumeFile> file = files_->create(pathAt(mountPoint));
  if (!file) {
    return BenchmarkError::notWritable;
  }
  return writeChunks(*file, sizeMB * bytesPerMB);
}

BenchmarkResult Benchmark::writeChunks(VolumeFile& file, std::int64_t totalBytes) {
  ChunkBuffer buffer(chunkBytes);
  buffer.fillRandomly();
  const auto start = setting_.now();
  for (std::int64_t remaining = totalBytes; remaining > 0;) {
    if (isStopping_) {
      return {};
    }
    const auto wanted = std::min(static_cast<std::size_t>(remaining), chunkBytes);
    const std::int64_t written = file.write(buffer.bytes().first(wanted));
    if (written <= 0) {
      return BenchmarkError::ioError;
    }
    remaining -= written;
  }
  file.flushToMedium(); // some file systems cannot, and their volumes have a speed all the same
  return speedMBps(totalBytes, setting_.now() - start);
}

BenchmarkResult Benchmark::readSync(const std::string& mountPoint) {
  const Visit visit(*this);
  const std::unique_ptr<VolumeFile> file = files_->open(pathAt(mountPoint));
  return file ? readChunks(*file) : BenchmarkError::ioError;
}

BenchmarkResult Benchmark::readChunks(VolumeFile& file) {
  ChunkBuffer buffer(chunkBytes);
  const auto start = setting_.now();
  std::int64_t total = 0;
  while (!isStopping_) {
    const std::int64_t count = file.read(buffer.bytes());
    if (count < 0) {
      return BenchmarkError::ioError;
    }
    if (count == 0) {
      return speedMBps(total, setting_.now() - start);
    }
    total += count;
  }
  return {};
}

void Benchmark::cleanup(const std::string& mountPoint) {
  files_->remove(pathAt(mountPoint));
  const std::lock_guard lock(mutex_);
  mountPointsWithFile_.erase(mountPoint);
}

void Benchmark::stop() {
  std::unique_lock lock(mutex_);
  isStopping_ = true;
  visitEnded_.wait(lock, [this] { return visitCount_ == 0; });
  for (const std::string& mountPoint : std::exchange(mountPointsWithFile_, {})) {
    files_->remove(pathAt(mountPoint));
  }
}

QCoro::Task<BenchmarkResult> writeTest(std::shared_ptr<Benchmark> benchmark,
                                       std::shared_ptr<MainQueue> queue, std::string mountPoint) {
  InBackground<BenchmarkResult> writing(std::move(queue), [benchmark, mountPoint] {
    return benchmark->writeSync(mountPoint, benchmark->sizeMB());
  });
  co_return co_await writing;
}

QCoro::Task<BenchmarkResult> readTest(std::shared_ptr<Benchmark> benchmark,
                                      std::shared_ptr<MainQueue> queue, std::string mountPoint) {
  InBackground<BenchmarkResult> reading(
      std::move(queue), [benchmark, mountPoint] { return benchmark->readSync(mountPoint); });
  co_return co_await reading;
}

} // namespace tamberline
