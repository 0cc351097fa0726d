#include "inspect_options.h"

#include "argument_parser.h"
#include "base/text.h"

#include <string>
#include <system_error>

namespace tamberline {
namespace {

using Text = std::string;

/// Its steps are folders of saved reports; which one is meant is not known.
void refuseRecording(const std::string& name) {
  const std::vector<RecordedStep> steps = stepsIn(name);
  if (!steps.empty()) {
    throw WrongArgument("'" + name + "' is a recording: name one of its steps, such as '" +
                        steps.front().folder.string() + "'");
  }
}

std::filesystem::path existingFolder(const std::string& name) {
  std::error_code error;
  if (!std::filesystem::exists(name, error)) {
    throw WrongArgument("there is no folder '" + name + "'");
  }
  if (!std::filesystem::is_directory(name, error)) {
    throw WrongArgument("'" + name + "' is not a folder");
  }
  refuseRecording(name);
  return name;
}

std::filesystem::path existingState(const std::string& name) {
  std::error_code error;
  if (!std::filesystem::exists(name, error)) {
    throw WrongArgument("there is no folder or document '" + name + "'");
  }
  refuseRecording(name);
  return name;
}

std::uintmax_t bytesOfMegabytes(const std::string& text) {
  constexpr std::int64_t maxMegabytes = 1'000'000;
  constexpr std::uintmax_t bytesPerMegabyte = 1'000'000;
  const std::optional<std::int64_t> number = parseDecimal(text);
  if (!number || *number < 1 || *number > maxMegabytes) {
    throw WrongArgument("a size is a number of megabytes from 1 to 1000000, not '" + text + "'");
  }
  return static_cast<std::uintmax_t>(*number) * bytesPerMegabyte;
}

/// The flags whose commands are only known after all arguments were read.
struct CommandFlags {
  bool watches = false;
  bool isAnonymous = false;
  bool writes = false;
  bool printsTap = false;
};

template <typename Chosen>
Chosen& chosen(InspectOptions& options) {
  return std::get<Chosen>(options.command);
}

void addSave(ArgumentParser& parser, InspectOptions& options, CommandFlags& flags) {
  ArgumentParser& save =
      parser.addSubcommand("save", [&options] { options.command = SaveCommand(); });
  save.addOption("DIR", [&](const Text& name) { chosen<SaveCommand>(options).folder = name; });
  save.addFlag("--anonymise", flags.isAnonymous);
}

void addCompare(ArgumentParser& parser, InspectOptions& options) {
  ArgumentParser& compare =
      parser.addSubcommand("compare", [&options] { options.command = CompareCommand(); });
  const auto take = [&](const Text& name) {
    chosen<CompareCommand>(options).states.push_back(existingState(name));
  };
  compare.addOption("A", take);
  compare.addOption("B", take);
}

void addExpect(ArgumentParser& parser, InspectOptions& options, CommandFlags& flags) {
  ArgumentParser& expect =
      parser.addSubcommand("expect", [&options] { options.command = ExpectCommand(); });
  expect.addOption("FILE", [&](const Text& name) { chosen<ExpectCommand>(options).file = name; });
  expect.addFlag("--write", flags.writes);
  expect.addFlag("--tap", flags.printsTap);
}

void addRecord(ArgumentParser& parser, InspectOptions& options, CommandFlags& flags) {
  ArgumentParser& record =
      parser.addSubcommand("record", [&options] { options.command = RecordCommand(); });
  record.addOption("DIR", [&](const Text& name) { chosen<RecordCommand>(options).folder = name; });
  record.addFlag("--anonymise", flags.isAnonymous);
  record.addOption("--max-size", [&](const Text& text) {
    chosen<RecordCommand>(options).maxBytes = bytesOfMegabytes(text);
  });
}

void addMetrics(ArgumentParser& parser, InspectOptions& options) {
  ArgumentParser& metrics =
      parser.addSubcommand("metrics", [&options] { options.command = MetricsCommand(); });
  metrics.addOption("--output",
                    [&](const Text& name) { chosen<MetricsCommand>(options).file = name; });
}

void addSharedOptions(ArgumentParser& parser, InspectOptions& options) {
  parser.addOption("--reports",
                   [&](const Text& folder) { options.reportsFolder = existingFolder(folder); });
  parser.addFlag("--json", options.printsJson);
  parser.addLanguageOption(options.language);
  parser.addFlag("-h,--help", options.showsHelp);
  parser.addFlag("-V,--version", options.showsVersion);
}

void check(const ShowCommand& /*command*/, const InspectOptions& /*options*/) {}

void check(const SaveCommand& command, const InspectOptions& /*options*/) {
  if (command.folder.empty()) {
    throw WrongArgument("which folder should be made?");
  }
}

void check(const CompareCommand& command, const InspectOptions& options) {
  if (command.states.empty()) {
    throw WrongArgument("what should be compared?");
  }
  if (command.states.size() > 1 && options.reportsFolder) {
    throw WrongArgument("--reports goes with one state to compare, not with two");
  }
}

void check(const ExpectCommand& command, const InspectOptions& options) {
  if (command.file.empty()) {
    throw WrongArgument("which file of expectations?");
  }
  if (command.writes && (options.printsJson || command.printsTap)) {
    throw WrongArgument("--write makes a file and prints nothing");
  }
  if (options.printsJson && command.printsTap) {
    throw WrongArgument("--json and --tap do not go together");
  }
}

void check(const RecordCommand& command, const InspectOptions& /*options*/) {
  if (command.folder.empty()) {
    throw WrongArgument("which folder should be made?");
  }
}

void check(const MetricsCommand& /*command*/, const InspectOptions& /*options*/) {}

bool takesJson(const Command& command) {
  return std::holds_alternative<ShowCommand>(command) ||
         std::holds_alternative<CompareCommand>(command) ||
         std::holds_alternative<ExpectCommand>(command);
}

void checkTogether(InspectOptions& options, const CommandFlags& flags) {
  if (options.showsHelp || options.showsVersion) {
    return;
  }
  if (auto* const show = std::get_if<ShowCommand>(&options.command)) {
    show->watches = flags.watches;
  } else if (flags.watches) {
    throw WrongArgument("--watch goes with no subcommand");
  }
  if (auto* const save = std::get_if<SaveCommand>(&options.command)) {
    save->isAnonymous = flags.isAnonymous;
  }
  if (auto* const expect = std::get_if<ExpectCommand>(&options.command)) {
    expect->writes = flags.writes;
    expect->printsTap = flags.printsTap;
  }
  if (auto* const record = std::get_if<RecordCommand>(&options.command)) {
    record->isAnonymous = flags.isAnonymous;
  }
  if (options.printsJson && !takesJson(options.command)) {
    throw WrongArgument("--json does not go with this subcommand");
  }
  std::visit([&](const auto& command) { check(command, options); }, options.command);
}

} // namespace

std::optional<InspectOptions> parseInspectOptions(int argc, char** argv) {
  InspectOptions options;
  CommandFlags flags;
  ArgumentParser parser("tamberline-inspect");
  addSharedOptions(parser, options);
  parser.addFlag("--watch", flags.watches);
  addSave(parser, options, flags);
  addCompare(parser, options);
  addExpect(parser, options, flags);
  addRecord(parser, options, flags);
  addMetrics(parser, options);
  parser.checkAtEnd([&] { checkTogether(options, flags); });
  return parser.parse(argc, argv) ? std::optional(options) : std::nullopt;
}

} // namespace tamberline
