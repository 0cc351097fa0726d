#include "inspect_options.h"

#include "argument_parser.h"

#include <string>
#include <system_error>

namespace tamberline {

const std::string_view inspectUsage =
    R"(Usage: tamberline-inspect [--reports DIR] [--json] [--watch]
                          [--language en|de|fr|it|es]
       tamberline-inspect --help | --version

Shows port by port what is attached to the USB-C and Thunderbolt ports of this machine.

  --reports DIR    show the machine whose reports were saved in the folder DIR
  --json           print everything the scan found as one JSON document
  --watch          print it again after each change, until interrupted: a text below the
                   time of its scan, a JSON document in one line
  --language CODE  the language of the texts; without it, the system's
  --help, -h       print this text
  --version, -V    print the version

Exit status: 0 after a scan that succeeded, 1 when an error left nothing to show or
the result could not be written, 2 for wrong arguments. With --watch 0 when
interrupted (SIGINT, SIGTERM, SIGHUP), 1 when the result could not be written. A reader
that has gone (| head) ends the program by SIGPIPE.

In the text, "▲" stands before the rating of an adapter that charges, "↑" before the
reason why a link is slow, and a bar's lighter part is what is allocated but not used.
On a terminal lines are wrapped at its width, or at COLUMNS; there are no colours where
NO_COLOR is set or TERM is "dumb".
)";

namespace {

std::filesystem::path existingFolder(const std::string& name) {
  std::error_code error;
  if (!std::filesystem::exists(name, error)) {
    throw WrongArgument("there is no folder '" + name + "'");
  }
  if (!std::filesystem::is_directory(name, error)) {
    throw WrongArgument("'" + name + "' is not a folder");
  }
  return name;
}

} // namespace

std::optional<InspectOptions> parseInspectOptions(int argc, char** argv) {
  InspectOptions options;
  ArgumentParser parser("tamberline-inspect");
  parser.addOption("--reports", [&options](const std::string& folder) {
    options.reportsFolder = existingFolder(folder);
  });
  parser.addFlag("--json", options.printsJson);
  parser.addFlag("--watch", options.watches);
  parser.addLanguageOption(options.language);
  parser.addFlag("-h,--help", options.showsHelp);
  parser.addFlag("-V,--version", options.showsVersion);
  return parser.parse(argc, argv) ? std::optional(options) : std::nullopt;
}

} // namespace tamberline
