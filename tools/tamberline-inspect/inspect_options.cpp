#include "inspect_options.h"

#include "platform/posix/command_line.h"

#include <array>
#include <cstdio>
#include <getopt.h>
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

enum OptionCode : int { reports = 1, json, watch, language, help, version };

bool complain(const std::string& message) {
  std::fprintf(stderr, "tamberline-inspect: %s\n", message.c_str());
  return false;
}

bool setReportsFolder(const std::filesystem::path& folder, InspectOptions& options) {
  std::error_code error;
  if (!std::filesystem::exists(folder, error)) {
    return complain("there is no folder '" + folder.string() + "'");
  }
  if (!std::filesystem::is_directory(folder, error)) {
    return complain("'" + folder.string() + "' is not a folder");
  }
  options.reportsFolder = folder;
  return true;
}

bool setLanguage(std::string_view code, InspectOptions& options) {
  options.language = AppLanguage::forCode(code);
  return options.language.has_value() ||
         complain("there is no language '" + std::string(code) + "'; there are en, de, fr, it, es");
}

/// False when the option was wrong, which has been said.
bool apply(int code, char** arguments, InspectOptions& options) {
  switch (code) {
  case reports:
    return setReportsFolder(optarg, options);
  case json:
    options.printsJson = true;
    return true;
  case watch:
    options.watches = true;
    return true;
  case language:
    return setLanguage(optarg, options);
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

} // namespace

std::optional<InspectOptions> parseInspectOptions(int argc, char** argv) {
  static constexpr std::array<option, 7> known = {{
      {"reports", required_argument, nullptr, reports},
      {"json", no_argument, nullptr, json},
      {"watch", no_argument, nullptr, watch},
      {"language", required_argument, nullptr, language},
      {"help", no_argument, nullptr, help},
      {"version", no_argument, nullptr, version},
      {nullptr, 0, nullptr, 0},
  }};
  InspectOptions options;
  opterr = 0; // the messages are ours
  for (int code = getopt_long(argc, argv, ":hV", known.data(), nullptr); code != -1;
       code = getopt_long(argc, argv, ":hV", known.data(), nullptr)) {
    if (!apply(code, argv, options)) {
      return std::nullopt;
    }
  }
  if (optind < argc) {
    complain("unexpected argument '" + std::string(argv[optind]) + "'");
    return std::nullopt;
  }
  return options;
}

} // namespace tamberline
