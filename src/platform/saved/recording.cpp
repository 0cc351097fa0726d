#include "platform/saved/recording.h"

#include "base/text.h"
#include "platform/saved/saved_files.h"
#include "platform/saved/saved_reports.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>

namespace tamberline {
namespace {

namespace fs = std::filesystem;
using Time = std::chrono::system_clock::time_point;

/// "step-000012-20261122T133500.123Z": the order of the names is that of the steps.
constexpr std::string_view nameBeginning = "step-";
constexpr QLatin1String dateFormat("yyyyMMdd");
constexpr QLatin1String timeOfDayFormat("'T'HHmmss.zzz'Z'");
constexpr qsizetype dateLength = 8;

/// The names of more steps would not be in order.
constexpr std::size_t maxSteps = 999'999;

/// What a file or an empty folder occupies on usual file systems.
std::uintmax_t occupied(std::uintmax_t bytes) {
  constexpr std::uintmax_t blockBytes = 4096;
  return std::max<std::uintmax_t>((bytes + blockBytes - 1) / blockBytes, 1) * blockBytes;
}

/// What a step occupies beyond the files that it shares with the one before.
std::uintmax_t ownBytesOf(const fs::path& step, const fs::path& before) {
  std::uintmax_t bytes = occupied(0);
  std::error_code error;
  for (auto file = fs::directory_iterator(step, error); !error && file != fs::end(file);
       file.increment(error)) {
    std::error_code missing;
    const std::uintmax_t size = file->file_size(missing);
    const bool isShared = fs::equivalent(file->path(), before / file->path().filename(), missing);
    bytes += isShared ? 0 : occupied(size);
  }
  return bytes;
}

/// Replaces a file unless it has that content. `same` is a file with that content, or empty.
WriteFailure changeFile(const fs::path& file, const std::string& content, const fs::path& same) {
  std::error_code missing;
  if (!same.empty() && (fs::equivalent(file, same, missing) || replaceByLink(file, same))) {
    return std::nullopt;
  }
  const bool isUnchanged = readRegularFile(file, content.size(), Links::refuse).bytes == content;
  return isUnchanged ? std::nullopt : replaceFile(file, content);
}

} // namespace

std::string nameOfStep(std::size_t number, Time time) {
  const auto sinceEpoch =
      std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
  const QDateTime moment = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count(), QTimeZone::utc());
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%06zu", number);
  return std::string(nameBeginning) + digits.data() + "-" +
         (moment.date().toString(dateFormat) + moment.time().toString(timeOfDayFormat))
             .toStdString();
}

std::optional<Time> timeOfStep(const std::string& name) {
  const std::vector<std::string_view> parts = split(name, '-');
  if (parts.size() != 3 || !name.starts_with(nameBeginning) || !parseDecimal(parts[1])) {
    return std::nullopt;
  }
  // Read apart: together they would be read as local time, in which an hour is missing in spring.
  const QString text = QString::fromUtf8(parts[2].data(), static_cast<qsizetype>(parts[2].size()));
  const QDate date = QDate::fromString(text.left(dateLength), dateFormat);
  const QTime timeOfDay = QTime::fromString(text.mid(dateLength), timeOfDayFormat);
  // Nanoseconds since the epoch fit the clock only up to the year 2262.
  const bool fitsClock = date.year() >= 1970 && date.year() <= 2261;
  if (!date.isValid() || !timeOfDay.isValid() || !fitsClock) {
    return std::nullopt;
  }
  const QDateTime moment(date, timeOfDay, QTimeZone::utc());
  return Time(std::chrono::milliseconds(moment.toMSecsSinceEpoch()));
}

std::vector<RecordedStep> stepsIn(const fs::path& recording) {
  std::vector<RecordedStep> steps;
  std::error_code error;
  for (auto entry = fs::directory_iterator(recording, error); !error && entry != fs::end(entry);
       entry.increment(error)) {
    const auto time = timeOfStep(entry->path().filename().string());
    std::error_code unreadable; // which must not end the loop
    if (time && fs::is_directory(entry->symlink_status(unreadable))) {
      steps.push_back({entry->path(), *time});
    }
  }
  std::sort(steps.begin(), steps.end(), [](const RecordedStep& left, const RecordedStep& right) {
    return left.folder.filename() < right.folder.filename();
  });
  return steps;
}

Recorder::Recorder(fs::path folder, std::uintmax_t maxBytes)
    : folder_(std::move(folder)), maxBytes_(maxBytes) {}

WriteFailure Recorder::begin() {
  std::error_code error;
  fs::create_directory(folder_, error);
  if (error) {
    return error.message();
  }
  const bool isEmpty = fs::is_empty(folder_, error);
  return isEmpty && !error ? std::nullopt
                           : WriteFailure(std::make_error_code(std::errc::file_exists).message());
}

/// Why a step with these files would be too much.
WriteFailure Recorder::refusalOf(const Files& files) const {
  if (steps_.size() == maxSteps) {
    return "the recording has " + std::to_string(maxSteps) + " steps, and no more fit";
  }
  std::uintmax_t bytes = usedBytes_ + occupied(0);
  for (const auto& [name, content] : files) {
    const auto before = filesOfLastStep_.find(name);
    const bool isShared = before != filesOfLastStep_.end() && before->second == content;
    bytes += isShared ? 0 : occupied(content.size());
  }
  constexpr std::uintmax_t megabyte = 1'000'000;
  return bytes <= maxBytes_ ? std::nullopt
                            : WriteFailure("the recording would take more than " +
                                           std::to_string(maxBytes_ / megabyte) + " MB");
}

WriteFailure Recorder::add(const Answers& answers, Time time) {
  const fs::path step = folder_ / nameOfStep(steps_.size() + 1, time);
  const fs::path before = steps_.empty() ? fs::path() : steps_.back();
  Files files = savedFiles(answers);
  if (WriteFailure refusal = refusalOf(files)) {
    return refusal;
  }
  if (WriteFailure failure = createFolderLike(step, files, before, filesOfLastStep_)) {
    return failure;
  }
  usedBytes_ += ownBytesOf(step, before); // on some file systems, nothing is shared
  steps_.push_back(step);
  filesOfLastStep_ = std::move(files);
  return std::nullopt;
}

WriteFailure Recorder::change(const std::function<Answers(std::size_t)>& answersOf) {
  fs::path before;
  Files filesBefore;
  std::uintmax_t usedBytes = 0;
  for (std::size_t index = 0; index < steps_.size(); ++index) {
    const fs::path& step = steps_[index];
    Files files = savedFiles(answersOf(index));
    for (const auto& [name, content] : files) {
      const auto earlier = filesBefore.find(name);
      const bool isShared = earlier != filesBefore.end() && earlier->second == content;
      if (WriteFailure failure =
              changeFile(step / name, content, isShared ? before / name : fs::path())) {
        return failure;
      }
    }
    usedBytes += ownBytesOf(step, before);
    before = step;
    filesBefore = std::move(files);
  }
  usedBytes_ = usedBytes;
  filesOfLastStep_ = std::move(filesBefore);
  return std::nullopt;
}

} // namespace tamberline
