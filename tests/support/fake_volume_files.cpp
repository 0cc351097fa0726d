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

  bool hasReadMedium() const override { return volumes_.hasReadMedium; }

private:
  FakeVolumeFiles& volumes_;
  std::string path_;
  int transferCount_ = 0;
  std::int64_t position_ = 0;
};

class FakeVolumeFiles::Folder final : public VolumeFolder {
public:
  Folder(FakeVolumeFiles& volumes, std::string mountPoint)
      : volumes_(volumes), mountPoint_(std::move(mountPoint)) {}

  VolumeIdentity identity() const override {
    const auto found = volumes_.identities.find(mountPoint_);
    return found == volumes_.identities.end() ? VolumeIdentity{mountPoint_} : found->second;
  }

  std::optional<std::uint64_t> freeBytes() const override {
    volumes_.note("look for room in " + mountPoint_);
    return volumes_.free;
  }

  bool canReadMedium() const override { return volumes_.canReadMedium; }

  Created create(const std::string& name) override {
    volumes_.note("create " + pathOf(name));
    if (volumes_.createFailure) {
      return *volumes_.createFailure;
    }
    volumes_.truncate(pathOf(name), 0);
    return std::make_unique<File>(volumes_, pathOf(name));
  }

  std::unique_ptr<VolumeFile> open(const std::string& name) override {
    volumes_.note("open " + pathOf(name));
    if (!volumes_.canOpen || !volumes_.files().contains(pathOf(name))) {
      return nullptr;
    }
    return std::make_unique<File>(volumes_, pathOf(name));
  }

  void remove(const std::string& name) override {
    volumes_.note("remove " + pathOf(name));
    const std::lock_guard lock(volumes_.mutex_);
    volumes_.files_.erase(pathOf(name));
  }

private:
  std::string pathOf(const std::string& name) const { return mountPoint_ + "/" + name; }

  FakeVolumeFiles& volumes_;
  std::string mountPoint_;
};

std::unique_ptr<VolumeFolder> FakeVolumeFiles::openFolder(const std::string& mountPoint) {
  {
    const std::lock_guard lock(mutex_);
    ++folderCount_;
  }
  return canOpenFolders ? std::make_unique<Folder>(*this, mountPoint) : nullptr;
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

std::size_t FakeVolumeFiles::folderCount() const {
  const std::lock_guard lock(mutex_);
  return folderCount_;
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
