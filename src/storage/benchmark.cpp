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
/// The space that must stay free beside the file, so that a benchmark never fills a volume.
constexpr std::int64_t reserveMB = 128;

double speedMBps(std::int64_t bytes, std::chrono::steady_clock::duration elapsed) {
  const double seconds = std::chrono::duration<double>(elapsed).count();
  return seconds > 0 ? static_cast<double>(bytes) / bytesPerMB / seconds : 0;
}

bool hasRoomFor(std::int64_t sizeMB, const VolumeFolder& folder) {
  const std::optional<std::uint64_t> freeBytes = folder.freeBytes();
  return !freeBytes || *freeBytes >= static_cast<std::uint64_t>((sizeMB + reserveMB) * bytesPerMB);
}

BenchmarkError errorOf(VolumeFolder::CreateFailure failure) {
  switch (failure) {
  case VolumeFolder::CreateFailure::notPermitted:
    return BenchmarkError::noPermission;
  case VolumeFolder::CreateFailure::noRoom:
    return BenchmarkError::noSpace;
  case VolumeFolder::CreateFailure::readOnly:
    break;
  }
  return BenchmarkError::notWritable;
}

void reportProgress(const BenchmarkOrder& order, std::int64_t done, std::int64_t total) {
  if (total > 0) {
    order.progress(static_cast<double>(done) / static_cast<double>(total));
  }
}

} // namespace

std::string_view userText(BenchmarkError error) {
  switch (error) {
  case BenchmarkError::notWritable:
    return Loc::benchReadOnly();
  case BenchmarkError::noPermission:
    return Loc::benchNoPermission();
  case BenchmarkError::noSpace:
    return Loc::benchNoSpace();
  case BenchmarkError::ioError:
    return Loc::benchIOError();
  case BenchmarkError::volumeChanged:
    return Loc::volumeChanged();
  case BenchmarkError::notMeasurable:
    return Loc::benchNotMeasurable();
  }
  return Loc::testFailed();
}

/// Counts a running routine, so that `stop` can wait for its end.
class Benchmark::ActiveRoutine {
public:
  explicit ActiveRoutine(Benchmark& benchmark) : benchmark_(benchmark) {
    const std::lock_guard lock(benchmark_.mutex_);
    ++benchmark_.routineCount_;
  }
  ActiveRoutine(const ActiveRoutine&) = delete;
  ActiveRoutine& operator=(const ActiveRoutine&) = delete;
  ~ActiveRoutine() {
    const std::lock_guard lock(benchmark_.mutex_);
    --benchmark_.routineCount_;
    benchmark_.routineEnded_.notify_all();
  }

private:
  Benchmark& benchmark_;
};

/// The run on one volume, from writing to the removal of its file. Its routines never run in
/// parallel.
struct Benchmark::Run {
  std::unique_ptr<VolumeFolder> folder; // null until the volume has been checked
  std::int64_t writtenBytes = 0;

  void removeFile() const {
    if (folder) {
      folder->remove(std::string(fileName));
    }
  }
};

Benchmark::Benchmark(std::shared_ptr<VolumeFiles> files, Setting setting)
    : files_(std::move(files)), setting_(std::move(setting)) {}

std::shared_ptr<Benchmark::Run> Benchmark::beginRun(const std::string& mountPoint) {
  const std::lock_guard lock(mutex_);
  return isStopping_ ? nullptr : runs_[mountPoint] = std::make_shared<Run>();
}

std::shared_ptr<Benchmark::Run> Benchmark::runOf(const std::string& mountPoint) {
  const std::lock_guard lock(mutex_);
  const auto found = runs_.find(mountPoint);
  return found == runs_.end() ? nullptr : found->second;
}

BenchmarkResult Benchmark::writeSync(const std::string& mountPoint, std::int64_t sizeMB,
                                     const BenchmarkOrder& order) {
  const ActiveRoutine routine(*this);
  const std::shared_ptr<Run> run = beginRun(mountPoint);
  if (!run) {
    return {};
  }
  std::unique_ptr<VolumeFolder> folder = files_->openFolder(mountPoint);
  if (!folder) {
    return BenchmarkError::notWritable;
  }
  if (order.volume && !order.volume->isSameVolumeAs(folder->identity())) {
    return BenchmarkError::volumeChanged;
  }
  run->folder = std::move(folder);
  return writeInto(*run, sizeMB, order);
}

BenchmarkResult Benchmark::writeInto(Run& run, std::int64_t sizeMB, const BenchmarkOrder& order) {
  if (!hasRoomFor(sizeMB, *run.folder)) {
    return BenchmarkError::noSpace;
  }
  if (!run.folder->canReadMedium()) {
    return BenchmarkError::notMeasurable;
  }
  const VolumeFolder::Created created = run.folder->create(std::string(fileName));
  if (const auto* failure = std::get_if<VolumeFolder::CreateFailure>(&created)) {
    return errorOf(*failure);
  }
  run.writtenBytes = sizeMB * bytesPerMB;
  return writeChunks(*std::get<std::unique_ptr<VolumeFile>>(created), run.writtenBytes, order);
}

BenchmarkResult Benchmark::writeChunks(VolumeFile& file, std::int64_t totalBytes,
                                       const BenchmarkOrder& order) {
  ChunkBuffer buffer(chunkBytes);
  setting_.fill(buffer);
  const auto start = setting_.now();
  for (std::int64_t remaining = totalBytes; remaining > 0;) {
    if (isOver(order)) {
      return {};
    }
    const auto wanted = std::min(static_cast<std::size_t>(remaining), chunkBytes);
    const std::int64_t written = file.write(buffer.bytes().first(wanted));
    if (written <= 0) {
      return written == VolumeFile::noSpaceLeft ? BenchmarkError::noSpace : BenchmarkError::ioError;
    }
    remaining -= written;
    reportProgress(order, totalBytes - remaining, totalBytes);
  }
  file.flushToMedium(); // failure is ignored: some file systems cannot flush, but have a speed
  return speedMBps(totalBytes, setting_.now() - start);
}

BenchmarkResult Benchmark::readSync(const std::string& mountPoint, const BenchmarkOrder& order) {
  const ActiveRoutine routine(*this);
  const std::shared_ptr<Run> run = runOf(mountPoint);
  if (!run || !run->folder) {
    return BenchmarkError::ioError;
  }
  const std::unique_ptr<VolumeFile> file = run->folder->open(std::string(fileName));
  if (!file) {
    return BenchmarkError::ioError;
  }
  return readChunks(*file, run->writtenBytes, order);
}

/// Stops after `totalBytes`, so that it ends even if another program keeps extending the file.
BenchmarkResult Benchmark::readChunks(VolumeFile& file, std::int64_t totalBytes,
                                      const BenchmarkOrder& order) {
  ChunkBuffer buffer(chunkBytes);
  const auto start = setting_.now();
  std::int64_t done = 0;
  for (std::int64_t count = 1; count > 0 && done <= totalBytes;) {
    if (isOver(order)) {
      return {};
    }
    count = file.read(buffer.bytes());
    if (count < 0) {
      return BenchmarkError::ioError;
    }
    done += count;
    reportProgress(order, std::min(done, totalBytes), totalBytes);
  }
  const auto elapsed = setting_.now() - start;
  return file.hasReadMedium() ? BenchmarkResult(speedMBps(done, elapsed))
                              : BenchmarkError::notMeasurable;
}

void Benchmark::cleanup(const std::string& mountPoint) {
  const ActiveRoutine routine(*this);
  if (const std::shared_ptr<Run> run = runOf(mountPoint)) {
    run->removeFile();
    const std::lock_guard lock(mutex_);
    runs_.erase(mountPoint);
  }
}

void Benchmark::stop() {
  std::unique_lock lock(mutex_);
  isStopping_ = true;
  routineEnded_.wait(lock, [this] { return routineCount_ == 0; });
  for (const auto& [mountPoint, run] : std::exchange(runs_, {})) {
    run->removeFile();
  }
}

QCoro::Task<BenchmarkResult> writeTest(std::shared_ptr<Benchmark> benchmark,
                                       std::shared_ptr<MainQueue> queue, std::string mountPoint,
                                       BenchmarkOrder order) {
  InBackground<BenchmarkResult> writing(std::move(queue), [benchmark, mountPoint, order] {
    return benchmark->writeSync(mountPoint, benchmark->sizeMB(), order);
  });
  co_return co_await writing;
}

QCoro::Task<BenchmarkResult> readTest(std::shared_ptr<Benchmark> benchmark,
                                      std::shared_ptr<MainQueue> queue, std::string mountPoint,
                                      BenchmarkOrder order) {
  InBackground<BenchmarkResult> reading(std::move(queue), [benchmark, mountPoint, order] {
    return benchmark->readSync(mountPoint, order);
  });
  co_return co_await reading;
}

} // namespace tamberline
