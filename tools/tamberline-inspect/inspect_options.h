#pragma once

#include "i18n/app_language.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace tamberline {

struct InspectOptions {
  /// If absent, this machine is shown.
  std::optional<std::filesystem::path> reportsFolder;
  bool printsJson = false;
  bool watches = false;
  /// If absent, the user's preferred language is used.
  std::optional<AppLanguage> language;
  bool showsHelp = false;
  bool showsVersion = false;
};

/// Absent if the arguments are invalid; the reason is then printed to standard error.
std::optional<InspectOptions> parseInspectOptions(int argc, char** argv);

extern const std::string_view inspectUsage;

} // namespace tamberline
