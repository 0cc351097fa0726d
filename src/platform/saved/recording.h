#pragma once

#include "acquisition/kept_answers.h"
#include "platform/posix/whole_files.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// A state of a machine in a recording: a folder of saved reports of its own, whose name tells its
/// number and time.
struct RecordedStep {
  std::filesystem::path folder;
  std::chrono::system_clock::time_point time; // in milliseconds
};

/// The name of a step's folder: its number, from 1, and its time.
std::string nameOfStep(std::size_t number, std::chrono::system_clock::time_point time);

/// The time in the name of a step's folder; absent for any other name.
std::optional<std::chrono::system_clock::time_point> timeOfStep(const std::string& name);

/// The whole steps of a recording, in order; empty if the folder is no recording. A step that was
/// not finished, because the recording program was killed, does not count. Neither does a link: the
/// recording may come from anyone, and nothing outside of it is read.
std::vector<RecordedStep> stepsIn(const std::filesystem::path& recording);

/// A device that comes and goes all the time would fill any medium.
inline constexpr std::uintmax_t usualMaxRecordingBytes = 1'000'000'000;

/// Writes a recording, step by step. Each step is whole or not there at all, and shares unchanged
/// files with the step before.
class Recorder {
public:
  explicit Recorder(std::filesystem::path folder, std::uintmax_t maxBytes = usualMaxRecordingBytes);

  /// Makes the folder; fails if something of its name exists, except for an empty folder.
  WriteFailure begin();

  /// Fails if the recording would become too large; what was recorded stays.
  WriteFailure add(const Answers& answers, std::chrono::system_clock::time_point time);

  /// Changes the steps so far: `answersOf` returns those of a step, by its index. Files that do not
  /// change are not written; the others are replaced, each whole or not at all. So a recording
  /// whose program is killed meanwhile has whole steps, some of them as before.
  WriteFailure change(const std::function<Answers(std::size_t index)>& answersOf);

  /// The name of the last step's folder.
  std::string lastName() const { return steps_.back().filename().string(); }

private:
  using Files = std::map<std::string, std::string>;

  WriteFailure refusalOf(const Files& files) const;

  std::filesystem::path folder_;
  std::uintmax_t maxBytes_;
  std::uintmax_t usedBytes_ = 0;
  std::vector<std::filesystem::path> steps_;
  Files filesOfLastStep_;
};

} // namespace tamberline
