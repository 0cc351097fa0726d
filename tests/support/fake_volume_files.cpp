#include "support/fake_volume_files.h"

#include <algorithm>
#include <utility>

namespace tamberline {

class FakeVolumeFiles::File final : public VolumeFile {
public:
  File(FakeVolumeFiles& volumes, std::string path) : volumes_(volumes), path_(std::move(path)) {
    const std::lock_guard lock(volumes_.mutex_);
    ++volumes_.openCount_;
  }

  ~File() override {
    volumes_.note("close");
    const std::lock_guard lock(volumes_.mutex_);
    --volumes_.openCount_;
  }

  std::int64_t write(std::span<const std::byte> bytes) override {
    volumes_.note("write " + std::to_string(bytes.size()));
    const auto failure = volumes_.writeFailures.find(++transferCount_);
    if (failure != volumes_.writeFailures.end()) {
      return failure->second;
    }
    volumes_.look(bytes);
    const auto count = static_cast<std::int64_t>(std::min(bytes.size(), volumes_.mostBytesAtOnce));
    const std::lock_guard lock(volumes_.mutex_);
    volumes_.files_[path_] += count;
    return count;
  }

  std::int64_t read(std::span<std::byte> buffer) override {
    volumes_.note("read " + std::to_string(buffer.size()));
    const auto failure = volumes_.readFailures.find(++transferCount_);
    if (failure != volumes_.readFailures.end()) {
      return failure->second;
    }
    const std::lock_guard lock(volumes_.mutex_);
    const auto wanted =
        static_cast<std::int64_t>(std::min(buffer.size(), volumes_.mostBytesAtOnce));
    const std::int64_t count = std::min(wanted, volumes_.files_[path_] - position_);
    position_ += count;
    return count;
  }

  bool flushToMedium() override {
    volumes_.note("flush");
    return volumes_.canFlush;
  }

private:
  FakeVolumeFiles& volumes_;
  std::string path_;
  int transferCount_ = 0;
  std::int64_t position_ = 0;
};

std::optional<std::uint64_t> FakeVolumeFiles::freeBytes(const std::string& mountPoint) {
  note("look for room in " + mountPoint);
  return free;
}

std::unique_ptr<VolumeFile> FakeVolumeFiles::create(const std::string& path) {
  note("create " + path);
  if (!canCreate) {
    return nullptr;
  }
  truncate(path, 0);
  return std::make_unique<File>(*this, path);
}

std::unique_ptr<VolumeFile> FakeVolumeFiles::open(const std::string& path) {
  note("open " + path);
  if (!canOpen || !files().contains(path)) {
    return nullptr;
  }
  return std::make_unique<File>(*this, path);
}

void FakeVolumeFiles::remove(const std::string& path) {
  note("remove " + path);
  const std::lock_guard lock(mutex_);
  files_.erase(path);
}

std::map<std::string, std::int64_t> FakeVolumeFiles::files() const {
  const std::lock_guard lock(mutex_);
  return files_;
}

void FakeVolumeFiles::truncate(const std::string& path, std::int64_t size) {
  const std::lock_guard lock(mutex_);
  files_[path] = size;
}

std::vector<std::string> FakeVolumeFiles::steps() const {
  const std::lock_guard lock(mutex_);
  return steps_;
}

int FakeVolumeFiles::openCount() const {
  const std::lock_guard lock(mutex_);
  return openCount_;
}

void FakeVolumeFiles::note(const std::string& step) {
  {
    const std::lock_guard lock(mutex_);
    steps_.push_back(step);
  }
  during(step);
}

} // namespace tamberline
