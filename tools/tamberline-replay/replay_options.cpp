#include "replay_options.h"

#include "argument_parser.h"
#include "base/text.h"

#include <locale>
#include <sstream>
#include <system_error>

namespace tamberline {

const std::string_view replayUsage =
    R"(Usage: tamberline-replay DIR [--language en|de|fr|it|es] [--theme light|dark]
                         [--font-scale F] [--expand-all] [--search TEXT]
                         [--screenshot FILE.png [--places FILE.json] [--enable-volumes]]
                         [--speed F] [--step N]
       tamberline-replay --help | --version

Opens the panel on the machine whose reports were saved in the folder DIR. A change of
any file there counts as something plugged in or unplugged.

If DIR is a recording of tamberline-inspect record, plays it in its own time and prints
each step. Ctrl+P pauses and goes on, Ctrl+N and Ctrl+B go to the next step and the one
before.

  --language CODE    the language of the texts; without it, the system's
  --theme NAME       light or dark; without it, the desktop's
  --font-scale F     multiplies the size of the text, from 0.5 to 4
  --expand-all       opens every card and row
  --search TEXT      searches for TEXT
  --enable-volumes   in a picture: shows the buttons of volumes as if they worked
  --screenshot FILE  writes a picture of the panel to FILE, whose name ends in .png, and
                     ends; needs no display
  --places FILE      with a picture: writes where each text and button is in it to FILE
  --speed F          plays a recording F times as fast, from 0.01 to 1000; a picture then
                     shows its end, otherwise its first step or that of --step
  --step N           begins a recording with step N, paused
  --help, -h         prints this text
  --version, -V      prints the version

Exit status: 0, 1 when the picture could not be written, 2 for wrong arguments.
)";

namespace {

constexpr double minFontScale = 0.5;
constexpr double maxFontScale = 4;
constexpr double minSpeed = 0.01;
constexpr double maxSpeed = 1000;

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

/// Absent for anything but a number from `min` to `max`.
std::optional<double> numberIn(const std::string& text, double min, double max) {
  std::istringstream number(text);
  number.imbue(std::locale::classic());
  double value = 0;
  number >> std::noskipws >> value;
  const bool isNumber = !number.fail() && number.peek() == std::istringstream::traits_type::eof();
  return isNumber && value >= min && value <= max ? std::optional(value) : std::nullopt;
}

double fontScaleOf(const std::string& text) {
  const std::optional<double> scale = numberIn(text, minFontScale, maxFontScale);
  if (!scale) {
    throw WrongArgument("the font scale is a number from 0.5 to 4, not '" + text + "'");
  }
  return *scale;
}

double speedOf(const std::string& text) {
  const std::optional<double> speed = numberIn(text, minSpeed, maxSpeed);
  if (!speed) {
    throw WrongArgument("the speed is a number from 0.01 to 1000, not '" + text + "'");
  }
  return *speed;
}

std::size_t stepOf(const std::string& text) {
  const std::optional<std::int64_t> number = parseDecimal(text);
  if (!number || *number < 1) {
    throw WrongArgument("a step is a number from 1, not '" + text + "'");
  }
  return static_cast<std::size_t>(*number);
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
  parser.addFlag("--enable-volumes", options.enablesVolumes);
  parser.addOption("--screenshot",
                   [&](const Text& file) { options.screenshot = pictureFile(file); });
  parser.addOption("--places", [&](const Text& file) { options.places = file; });
  parser.addOption("--speed", [&](const Text& text) { options.speed = speedOf(text); });
  parser.addOption("--step", [&](const Text& text) { options.step = stepOf(text); });
  parser.addFlag("-h,--help", options.showsHelp);
  parser.addFlag("-V,--version", options.showsVersion);
}

void checkRecording(const ReplayOptions& options) {
  if (options.steps.empty() && (options.speed || options.step)) {
    throw WrongArgument("'" + options.reportsFolder.string() +
                        "' is no recording: --speed and --step go with one");
  }
  if (options.step > options.steps.size()) {
    throw WrongArgument("the recording has " + std::to_string(options.steps.size()) + " steps");
  }
}

void checkTogether(ReplayOptions& options) {
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
  if (options.enablesVolumes && !options.screenshot) {
    throw WrongArgument("volumes of another computer cannot be tested: --enable-volumes goes with "
                        "--screenshot");
  }
  if (options.places && !options.screenshot) {
    throw WrongArgument("there are places only in a picture: --places goes with --screenshot");
  }
  options.steps = stepsIn(options.reportsFolder);
  checkRecording(options);
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
