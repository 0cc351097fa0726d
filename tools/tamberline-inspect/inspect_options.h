#pragma once

#include "i18n/app_language.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace tamberline {

struct InspectOptions {
  /// Absent: the machine that the program runs on.
  std::optional<std::filesystem::path> reportsFolder;
  bool printsJson = false;
  bool watches = false;
  /// Absent: the language that the person prefers.
  std::optional<AppLanguage> language;
  bool showsHelp = false;
  bool showsVersion = false;
};

/// Absent for arguments that make no sense, after saying why on standard error.
std::optional<InspectOptions> parseInspectOptions(int argc, char** argv);

extern const std::string_view inspectUsage;

} // namespace tamberline
