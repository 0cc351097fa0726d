#include "platform/saved/recording.h"

#include "base/text.h"
#include "platform/saved/saved_files.h"

#include <QDateTime>
#include <QString>

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
constexpr auto timeFormat = "yyyyMMdd'T'HHmmss.zzz'Z'";

std::string nameOfStep(std::size_t number, Time time) {
  const auto sinceEpoch =
      std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
  const QDateTime moment = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count(), Qt::UTC);
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%06zu", number);
  return std::string(nameBeginning) + digits.data() + "-" +
         moment.toString(QLatin1String(timeFormat)).toStdString();
}

std::optional<Time> timeIn(const std::string& name) {
  const std::vector<std::string_view> parts = split(name, '-');
  if (parts.size() != 3 || !name.starts_with(nameBeginning) || !parseDecimal(parts[1])) {
    return std::nullopt;
  }
  QDateTime moment = QDateTime::fromString(
      QString::fromUtf8(parts[2].data(), static_cast<qsizetype>(parts[2].size())),
      QLatin1String(timeFormat));
  moment.setTimeSpec(Qt::UTC);
  return moment.isValid()
             ? std::optional(Time(std::chrono::milliseconds(moment.toMSecsSinceEpoch())))
             : std::nullopt;
}

} // namespace

std::vector<RecordedStep> stepsIn(const fs::path& recording) {
  std::vector<RecordedStep> steps;
  std::error_code error;
  for (auto entry = fs::directory_iterator(recording, error); !error && entry != fs::end(entry);
       entry.increment(error)) {
    const auto time = timeIn(entry->path().filename().string());
    if (time && entry->is_directory(error)) {
      steps.push_back({entry->path(), *time});
    }
  }
  std::sort(steps.begin(), steps.end(), [](const RecordedStep& left, const RecordedStep& right) {
    return left.folder.filename() < right.folder.filename();
  });
  return steps;
}

Recorder::Recorder(fs::path folder) : folder_(std::move(folder)) {}

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

WriteFailure Recorder::add(const Answers& answers, Time time) {
  const fs::path step = folder_ / nameOfStep(stepCount_ + 1, time);
  std::map<std::string, std::string> files = savedFiles(answers);
  if (WriteFailure failure = createFolderLike(step, files, lastFolder_, lastFiles_)) {
    return failure;
  }
  ++stepCount_;
  lastFolder_ = step;
  lastFiles_ = std::move(files);
  return std::nullopt;
}

} // namespace tamberline
