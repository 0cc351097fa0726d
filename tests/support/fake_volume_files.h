#pragma once

#include "storage/benchmark.h"
#include "storage/volume_files.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// Volumes in memory that fail where a test tells them to, and a record of what was done to them.
/// Settings are for before the test; the record may be read from any thread.
class FakeVolumeFiles final : public VolumeFiles {
public:
  std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) override;

  /// What is mounted, by mount point; the mount point's own name where nothing is said.
  std::map<std::string, VolumeIdentity> identities;
  bool canOpenFolders = true;
  std::optional<std::uint64_t> free = 1'000'000'000'000U;
  std::optional<VolumeFolder::CreateFailure> createFailure;
  bool canOpen = true;
  /// Whether it can be seen to before the test, and whether it was so in the end.
  bool canReadMedium = true;
  bool hasReadMedium = true;
  bool canFlush = true;
  /// What the nth write or read, counted from 1, gives instead of bytes.
  std::map<int, std::int64_t> writeFailures;
  std::map<int, std::int64_t> readFailures;
  std::size_t mostBytesAtOnce = Benchmark::chunkBytes;
  /// What happens in the middle of a step, such as the passing of time; by the step's line.
  std::function<void(const std::string& step)> during = [](const std::string&) {};
  std::function<void(std::span<const std::byte> bytes)> look = [](std::span<const std::byte>) {};

  /// Bytes by path of the files that are there.
  std::map<std::string, std::int64_t> files() const;
  /// Somebody cuts the file short, or it is gone with its volume.
  void truncate(const std::string& path, std::int64_t size);

  /// One line a step: "create /Volumes/Data/.tamberline_benchmark.tmp", "write 8388608".
  std::vector<std::string> steps() const;
  /// How often the folder of a volume was opened.
  std::size_t folderCount() const;
  /// Files that are open now.
  int openCount() const;

private:
  class File;
  class Folder;

  void note(const std::string& step);

  mutable std::mutex mutex_;
  std::map<std::string, std::int64_t> files_;
  std::vector<std::string> steps_;
  std::size_t folderCount_ = 0;
  int openCount_ = 0;
};

} // namespace tamberline
