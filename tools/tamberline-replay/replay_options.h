#pragma once

#include "i18n/app_language.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline {

enum class ReplayTheme : unsigned char { light, dark };

struct ReplayOptions {
  std::filesystem::path reportsFolder;
  /// Absent: the language that the person prefers.
  std::optional<AppLanguage> language;
  /// Absent: the desktop's.
  std::optional<ReplayTheme> theme;
  double fontScale = 1;
  bool expandsAll = false;
  std::string searchText;
  /// Where the picture goes; absent: the panel stays open.
  std::optional<std::filesystem::path> screenshot;
  /// Where the places of the picture's texts go; never without a picture.
  std::optional<std::filesystem::path> places;
  bool showsHelp = false;
  bool showsVersion = false;
};

/// Absent for arguments that make no sense, after saying why on standard error.
std::optional<ReplayOptions> parseReplayOptions(int argc, char** argv);

extern const std::string_view replayUsage;

} // namespace tamberline
