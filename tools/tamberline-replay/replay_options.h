#pragma once

#include "i18n/app_language.h"
#include "platform/saved/recording.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

enum class ReplayTheme : unsigned char { light, dark };

struct ReplayOptions {
  std::filesystem::path reportsFolder;
  /// The steps, if that folder is a recording; otherwise empty.
  std::vector<RecordedStep> steps;
  /// If absent, the user's preferred language is used.
  std::optional<AppLanguage> language;
  /// If absent, the desktop's theme is used.
  std::optional<ReplayTheme> theme;
  double fontScale = 1;
  /// Divides the time between the steps of a recording; absent if it is not given.
  std::optional<double> speed;
  /// The step of a recording to begin with, from 1, paused; if absent, it plays from the first.
  std::optional<std::size_t> step;
  bool expandsAll = false;
  std::string searchText;
  /// Shows the buttons of volumes as on the computer that the volumes are on; only with
  /// `screenshot`.
  bool enablesVolumes = false;
  /// The file for the picture; if absent, the panel is opened and stays open.
  std::optional<std::filesystem::path> screenshot;
  /// The file for the positions of texts and buttons in the picture; only with `screenshot`.
  std::optional<std::filesystem::path> places;
  bool showsHelp = false;
  bool showsVersion = false;
};

/// Absent if the arguments are invalid; the reason is then printed to standard error.
std::optional<ReplayOptions> parseReplayOptions(int argc, char** argv);

extern const std::string_view replayUsage;

} // namespace tamberline
