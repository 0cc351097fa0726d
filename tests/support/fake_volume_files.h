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

/// Volumes in memory that fail where the test says, and a record of all steps. Change the settings
/// only before the test; the record may be read from any thread.
class FakeVolumeFiles final : public VolumeFiles {
public:
  std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) override;

  /// The mounted volumes, by mount point; a volume without an entry is identified by its mount
  /// point.
  std::map<std::string, VolumeIdentity> identities;
  bool canOpenFolders = true;
  std::optional<std::uint64_t> free = 1'000'000'000'000U;
  std::optional<VolumeFolder::CreateFailure> createFailure;
  bool canOpen = true;
  /// Whether reading from the medium can be ensured before the test, and whether it did happen.
  bool canReadMedium = true;
  bool hasReadMedium = true;
  bool canFlush = true;
  /// The result of the nth write or read, counted from 1, instead of the number of bytes.
  std::map<int, std::int64_t> writeFailures;
  std::map<int, std::int64_t> readFailures;
  std::size_t mostBytesAtOnce = Benchmark::chunkBytes;
  /// Called in the middle of a step, for example to let time pass; the argument is the step's line.
  std::function<void(const std::string& step)> during = [](const std::string&) {};
  std::function<void(std::span<const std::byte> bytes)> look = [](std::span<const std::byte>) {};

  /// The size in bytes of the existing files, by path.
  std::map<std::string, std::int64_t> files() const;
  /// Cuts the file short, as another program could, or removes it with its volume.
  void truncate(const std::string& path, std::int64_t size);

  /// One line for each step: "create /Volumes/Data/.tamberline_benchmark.tmp", "write 8388608".
  std::vector<std::string> steps() const;
  /// How often the folder of a volume was opened.
  std::size_t folderCount() const;
  /// The number of open files.
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
