#pragma once

#include "acquisition/kept_answers.h"
#include "platform/posix/whole_files.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tamberline {

/// A state of a machine in a recording: a folder of saved reports of its own, whose name tells its
/// number and time.
struct RecordedStep {
  std::filesystem::path folder;
  std::chrono::system_clock::time_point time; // in milliseconds
};

/// The whole steps of a recording, in order; empty if the folder is no recording. A step that was
/// not finished, because the recording program was killed, does not count.
std::vector<RecordedStep> stepsIn(const std::filesystem::path& recording);

/// Writes a recording, step by step. Each step is whole or not there at all, and shares unchanged
/// files with the step before.
class Recorder {
public:
  explicit Recorder(std::filesystem::path folder);

  /// Makes the folder; fails if something of its name exists, except for an empty folder.
  WriteFailure begin();

  WriteFailure add(const Answers& answers, std::chrono::system_clock::time_point time);

  /// The name of the last step's folder.
  std::string lastName() const { return lastFolder_.filename().string(); }

private:
  std::filesystem::path folder_;
  std::size_t stepCount_ = 0;
  std::filesystem::path lastFolder_;
  std::map<std::string, std::string> lastFiles_;
};

} // namespace tamberline
