#include "replay_options.h"

#include "base/text.h"
#include "platform/posix/command_line.h"

#include <array>
#include <cstdio>
#include <getopt.h>
#include <locale>
#include <sstream>

namespace tamberline {

const std::string_view replayUsage =
    R"(Usage: tamberline-replay DIR [--language en|de|fr|it|es] [--theme light|dark]
                         [--font-scale F] [--expand-all] [--search TEXT]
                         [--screenshot FILE.png [--places FILE.json]]
       tamberline-replay --help | --version

Opens the panel on the machine whose reports were saved in the folder DIR. A change of
any file there counts as something plugged in or unplugged.

  --language CODE    the language of the texts; without it, the system's
  --theme NAME       light or dark; without it, the desktop's
  --font-scale F     multiplies the size of the text, from 0.5 to 4
  --expand-all       opens every card and row
  --search TEXT      searches for TEXT
  --screenshot FILE  writes a picture of the panel to FILE, whose name ends in .png, and
                     ends; needs no display
  --places FILE      with a picture: writes where each text and button is in it to FILE
  --help, -h         prints this text
  --version, -V      prints the version

Exit status: 0, 1 when the picture could not be written, 2 for wrong arguments.
)";

namespace {

constexpr double leastFontScale = 0.5;
constexpr double greatestFontScale = 4;

enum OptionCode : int {
  language = 1,
  theme,
  fontScale,
  expandAll,
  search,
  screenshot,
  places,
  help,
  version
};

bool complain(const std::string& message) {
  std::fprintf(stderr, "tamberline-replay: %s\n", message.c_str());
  return false;
}

bool setLanguage(std::string_view code, ReplayOptions& options) {
  options.language = AppLanguage::forCode(code);
  return options.language.has_value() ||
         complain("there is no language '" + std::string(code) + "'; there are en, de, fr, it, es");
}

bool setTheme(std::string_view name, ReplayOptions& options) {
  if (name == "light") {
    options.theme = ReplayTheme::light;
  } else if (name == "dark") {
    options.theme = ReplayTheme::dark;
  }
  return options.theme.has_value() ||
         complain("there is no theme '" + std::string(name) + "'; there are light and dark");
}

bool setScreenshot(const std::filesystem::path& file, ReplayOptions& options) {
  options.screenshot = file;
  return file.extension() == ".png" || complain("a picture is a PNG file, and the name of '" +
                                                file.string() + "' does not end in .png");
}

bool setFontScale(std::string_view text, ReplayOptions& options) {
  std::istringstream number{std::string(text)};
  number.imbue(std::locale::classic());
  number >> std::noskipws >> options.fontScale;
  const bool isNumber = !number.fail() && number.peek() == std::istringstream::traits_type::eof();
  const bool isInRange =
      options.fontScale >= leastFontScale && options.fontScale <= greatestFontScale;
  return (isNumber && isInRange) ||
         complain("the font scale is a number from 0.5 to 4, not '" + std::string(text) + "'");
}

/// False when the option was wrong, which has been said.
bool apply(int code, char** arguments, ReplayOptions& options) {
  switch (code) {
  case language:
    return setLanguage(optarg, options);
  case theme:
    return setTheme(optarg, options);
  case fontScale:
    return setFontScale(optarg, options);
  case expandAll:
    options.expandsAll = true;
    return true;
  case search:
    options.searchText = optarg;
    return true;
  case screenshot:
    return setScreenshot(optarg, options);
  case places:
    options.places = optarg;
    return true;
  case help:
  case 'h':
    options.showsHelp = true;
    return true;
  case version:
  case 'V':
    options.showsVersion = true;
    return true;
  case ':':
    return complain("option '" + refusedOption(arguments) + "' needs an argument");
  default:
    return complain("unknown option '" + refusedOption(arguments) + "'");
  }
}

bool applyOptions(int argc, char** argv, ReplayOptions& options) {
  static constexpr std::array<option, 10> known = {{
      {"language", required_argument, nullptr, language},
      {"theme", required_argument, nullptr, theme},
      {"font-scale", required_argument, nullptr, fontScale},
      {"expand-all", no_argument, nullptr, expandAll},
      {"search", required_argument, nullptr, search},
      {"screenshot", required_argument, nullptr, screenshot},
      {"places", required_argument, nullptr, places},
      {"help", no_argument, nullptr, help},
      {"version", no_argument, nullptr, version},
      {nullptr, 0, nullptr, 0},
  }};
  opterr = 0; // the messages are ours
  for (int code = getopt_long(argc, argv, ":hV", known.data(), nullptr); code != -1;
       code = getopt_long(argc, argv, ":hV", known.data(), nullptr)) {
    if (!apply(code, argv, options)) {
      return false;
    }
  }
  return true;
}

bool setReportsFolder(int argc, char** argv, ReplayOptions& options) {
  if (optind >= argc) {
    return complain("which folder of saved reports?");
  }
  if (optind + 1 < argc) {
    return complain("unexpected argument '" + std::string(argv[optind + 1]) + "'");
  }
  options.reportsFolder = argv[optind];
  std::error_code error;
  return std::filesystem::is_directory(options.reportsFolder, error) ||
         complain("there is no folder '" + options.reportsFolder.string() + "'");
}

} // namespace

std::optional<ReplayOptions> parseReplayOptions(int argc, char** argv) {
  ReplayOptions options;
  if (!applyOptions(argc, argv, options)) {
    return std::nullopt;
  }
  if (options.showsHelp || options.showsVersion) {
    return options;
  }
  if (!setReportsFolder(argc, argv, options)) {
    return std::nullopt;
  }
  if (options.places && !options.screenshot) {
    complain("there are places only in a picture: --places goes with --screenshot");
    return std::nullopt;
  }
  return options;
}

} // namespace tamberline
