#pragma once

#include "i18n/app_language.h"
#include "platform/saved/recording.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace tamberline {

/// What the arguments ask for. Without a subcommand the machine is shown.
struct ShowCommand {
  bool watches = false;
};

struct SaveCommand {
  std::filesystem::path folder = {};
  bool isAnonymous = false;
};

struct CompareCommand {
  /// One or two folders or documents; a single one is compared with the machine.
  std::vector<std::filesystem::path> states = {};
};

struct ExpectCommand {
  std::filesystem::path file = {};
  /// Makes the file instead of reading it.
  bool writes = false;
  bool printsTap = false;
};

struct RecordCommand {
  std::filesystem::path folder = {};
  bool isAnonymous = false;
  /// The recording ends before it takes more.
  std::uintmax_t maxBytes = usualMaxRecordingBytes;
};

struct MetricsCommand {
  /// If absent, the metrics are printed.
  std::optional<std::filesystem::path> file = {};
};

using Command = std::variant<ShowCommand, SaveCommand, CompareCommand, ExpectCommand, RecordCommand,
                             MetricsCommand>;

struct InspectOptions {
  Command command = ShowCommand();
  /// If absent, this machine is used.
  std::optional<std::filesystem::path> reportsFolder;
  bool printsJson = false;
  /// If absent, the user's preferred language is used.
  std::optional<AppLanguage> language;
  bool showsHelp = false;
  bool showsVersion = false;
};

/// Absent if the arguments are invalid; the reason is then printed to standard error.
std::optional<InspectOptions> parseInspectOptions(int argc, char** argv);

/// The help for a command.
std::string_view usageOf(const Command& command);

} // namespace tamberline
