#include "replay_options.h"

#include "argument_parser.h"

#include <locale>
#include <sstream>
#include <system_error>

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

constexpr double minFontScale = 0.5;
constexpr double maxFontScale = 4;

ReplayTheme themeNamed(const std::string& name) {
  if (name != "light" && name != "dark") {
    throw WrongArgument("there is no theme '" + name + "'; there are light and dark");
  }
  return name == "light" ? ReplayTheme::light : ReplayTheme::dark;
}

std::filesystem::path pictureFile(const std::filesystem::path& file) {
  if (file.extension() != ".png") {
    throw WrongArgument("a picture is a PNG file, and the name of '" + file.string() +
                        "' does not end in .png");
  }
  return file;
}

double fontScaleOf(const std::string& text) {
  std::istringstream number(text);
  number.imbue(std::locale::classic());
  double scale = 0;
  number >> std::noskipws >> scale;
  const bool isNumber = !number.fail() && number.peek() == std::istringstream::traits_type::eof();
  const bool isInRange = scale >= minFontScale && scale <= maxFontScale;
  if (!isNumber || !isInRange) {
    throw WrongArgument("the font scale is a number from 0.5 to 4, not '" + text + "'");
  }
  return scale;
}

void addOptions(ArgumentParser& parser, ReplayOptions& options) {
  using Text = std::string;
  parser.addOption("DIR", [&](const Text& name) { options.reportsFolder = name; });
  parser.addLanguageOption(options.language);
  parser.addOption("--theme", [&](const Text& name) { options.theme = themeNamed(name); });
  parser.addOption("--font-scale",
                   [&](const Text& text) { options.fontScale = fontScaleOf(text); });
  parser.addFlag("--expand-all", options.expandsAll);
  parser.addOption("--search", [&](const Text& text) { options.searchText = text; });
  parser.addOption("--screenshot",
                   [&](const Text& file) { options.screenshot = pictureFile(file); });
  parser.addOption("--places", [&](const Text& file) { options.places = file; });
  parser.addFlag("-h,--help", options.showsHelp);
  parser.addFlag("-V,--version", options.showsVersion);
}

void checkTogether(const ReplayOptions& options) {
  if (options.showsHelp || options.showsVersion) {
    return;
  }
  if (options.reportsFolder.empty()) {
    throw WrongArgument("which folder of saved reports?");
  }
  std::error_code error;
  if (!std::filesystem::is_directory(options.reportsFolder, error)) {
    throw WrongArgument("there is no folder '" + options.reportsFolder.string() + "'");
  }
  if (options.places && !options.screenshot) {
    throw WrongArgument("there are places only in a picture: --places goes with --screenshot");
  }
}

} // namespace

std::optional<ReplayOptions> parseReplayOptions(int argc, char** argv) {
  ReplayOptions options;
  ArgumentParser parser("tamberline-replay");
  addOptions(parser, options);
  parser.checkAtEnd([&options] { checkTogether(options); });
  return parser.parse(argc, argv) ? std::optional(options) : std::nullopt;
}

} // namespace tamberline
