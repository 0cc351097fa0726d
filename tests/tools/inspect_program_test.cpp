#include "platform/posix/child_process_runner.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <clocale>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

const std::string sampleFolder = SAMPLES_FOLDER;

struct Outcome {
  std::string output;
  std::string errorOutput;
  std::optional<int> exitStatus;
};

ToolOutput runInShell(const std::string& redirection, const std::vector<std::string>& arguments,
                      const std::string& environment) {
  std::vector<std::string> words = {"-c",
                                    "exec env -u LANGUAGE -u LC_ALL -u LC_MESSAGES -u LANG " +
                                        environment + " \"$@\" " + redirection,
                                    "sh", INSPECT_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return ChildProcessRunner().run("/bin/sh", words);
}

Outcome inspect(const std::vector<std::string>& arguments, const std::string& environment = "") {
  const ToolOutput output = runInShell("", arguments, environment);
  const ToolOutput errorOutput = runInShell("2>&1 >/dev/null", arguments, environment);
  return {output.standardOutput, errorOutput.standardOutput, output.exitStatus};
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

void saveEmptySections(const TemporaryFolder& folder) {
  for (const std::string section : {"SPThunderboltDataType", "SPUSBDataType", "SPPowerDataType"}) {
    folder.save(section + ".json", "{\"" + section + "\": []}");
  }
}

TEST(InspectProgram, ShowsEverySampleAsTextAndAsADocument) {
  for (const std::string machine :
       {"desk", "road", "desktop", "bare", "studio", "laptop", "slow", "not-charging"}) {
    SCOPED_TRACE(machine);
    const Outcome text = inspect({"--reports", sampleFolder + "/" + machine});
    EXPECT_EQ(text.exitStatus, 0);
    EXPECT_EQ(text.errorOutput, "");
    EXPECT_TRUE(contains(text.output, "Thunderbolt Port 1"));
    const Outcome document = inspect({"--reports", sampleFolder + "/" + machine, "--json"});
    EXPECT_EQ(document.exitStatus, 0);
    EXPECT_EQ(json::parse(document.output)["panel"]["state"], "cards");
  }
}

TEST(InspectProgram, ShowsWhatIsAttachedToTheDesk) {
  const Outcome outcome = inspect({"--reports", sampleFolder + "/desk"});
  EXPECT_TRUE(contains(outcome.output, "├─ Quarry Slate NVMe Enclosure  [TB3]\n"));
  EXPECT_TRUE(contains(outcome.output, "Volume  Küste Sommer  /Volumes/Küste Sommer\n"));
  EXPECT_TRUE(contains(outcome.output, "↑ Port supports up to 10 Gb/s — device or cable is"));
}

/// Names and speeds of devices, as indented text.
std::string devicesText(const json& devices, const std::string& indent) {
  std::string text;
  for (const json& device : devices) {
    text += indent + device["name"].get<std::string>() + " " +
            device["speedShortLabel"].get<std::string>() + "\n" +
            devicesText(device["children"], indent + "  ");
  }
  return text;
}

TEST(InspectProgram, ShowsAMachineWhoseUSBReportIsInTheNewerSection) {
  const Outcome outcome = inspect({"--reports", sampleFolder + "/studio", "--json"});
  EXPECT_EQ(outcome.errorOutput, "");
  const json document = json::parse(outcome.output);
  std::string text;
  for (const json& bus : document["usbBuses"]) {
    text += bus["displayName"].get<std::string>() + " " + bus["hostController"].get<std::string>() +
            "\n" + devicesText(bus["devices"], "  ");
  }
  EXPECT_EQ(text, "USB 3.1 Bus AppleT8122USBXHCI, like AppleT8132USBXHCI\n"
                  "  USB3.1 Hub 10 Gb/s\n"
                  "    Quarry Pebble SSD 10 Gb/s\n"
                  "    Larkspur Compact Keyboard 1.5 Mb/s\n"
                  "    Copperline Solo Audio Interface 480 Mb/s\n"
                  "    Larkspur Drum Pad 12 Mb/s\n"
                  "USB 3.1 Bus AppleT8122USBXHCI, like AppleT8132USBXHCI\n"
                  "  Pocket Stick 64 480 Mb/s\n");
  const json& cards = document["panel"]["cards"];
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(cards[0]["rows"][0]["name"], "USB3.1 Hub");
  EXPECT_EQ(cards[1]["rows"][0]["name"], "Pocket Stick 64");
  EXPECT_EQ(cards[1]["rows"][0]["powerBar"]["usedMa"], 200);
}

TEST(InspectProgram, UsesNoColorsWithoutATerminal) {
  EXPECT_FALSE(contains(inspect({"--reports", sampleFolder + "/desk"}).output, "\x1b"));
}

TEST(InspectProgram, SpeaksTheRequestedOrThePreferredLanguage) {
  const struct {
    std::vector<std::string> options;
    std::string environment;
    std::string expected;
  } table[] = {
      {{}, "", "Nothing attached"},
      {{"--language", "de"}, "", "Nichts angeschlossen"},
      {{"--language", "fr"}, "LANG=de_DE.UTF-8", "Rien de connecté"},
      {{"--language=it"}, "", "Niente collegato"},
      {{"--language", "de", "--language", "fr"}, "", "Rien de connecté"},
      {{}, "LANG=es_ES.UTF-8", "Nada conectado"},
      {{}, "LANGUAGE=de:fr LC_ALL=C", "Nichts angeschlossen"},
      {{}, "LANGUAGE=de_AT.UTF-8:fr_FR.UTF-8:es_ES.UTF-8", "Nichts angeschlossen"},
      {{}, "LC_ALL=POSIX LANG=de_DE.UTF-8", "Nothing attached"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.environment + " " + row.expected);
    std::vector<std::string> arguments = {"--reports", sampleFolder + "/bare"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    const Outcome outcome = inspect(arguments, row.environment);
    EXPECT_TRUE(contains(outcome.output, row.expected));
    EXPECT_EQ(outcome.errorOutput, "");
  }
}

TEST(InspectProgram, WritesADecimalPointInEveryLocale) {
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    GTEST_SKIP() << "this machine has no locale with a decimal comma";
  }
  std::setlocale(LC_ALL, "C");
  const Outcome outcome =
      inspect({"--reports", sampleFolder + "/desk", "--language", "de"}, "LC_ALL=de_DE.UTF-8");
  EXPECT_TRUE(contains(outcome.output, "8.8 W genutzt"));
}

TEST(InspectProgram, RejectsInvalidArguments) {
  const TemporaryFolder folder;
  folder.save("file", "");
  const std::string file = (folder.path() / "file").string();
  const std::string recording = (folder.path() / "recording").string();
  const std::string step = recording + "/step-000001-20261122T133500.000Z";
  std::filesystem::create_directories(step);
  const std::string isRecording =
      "'" + recording + "' is a recording: name one of its steps, such as '" + step + "'";
  const struct {
    std::vector<std::string> arguments;
    std::string message;
  } table[] = {
      {{"--reports", "/nowhere/at/all"}, "there is no folder '/nowhere/at/all'"},
      {{"--reports", file}, "'" + file + "' is not a folder"},
      {{"--reports", recording}, isRecording},
      {{"compare", recording}, isRecording},
      {{"--reports"}, "option '--reports' needs an argument"},
      {{"--reports", "--json"}, "there is no folder '--json'"},
      {{"--reports=", "--json"}, "there is no folder ''"},
      {{"--language", "pt"}, "there is no language 'pt'; there are en, de, fr, it, es"},
      {{"--language", ""}, "there is no language ''; there are en, de, fr, it, es"},
      {{"--frobnicate"}, "unknown option '--frobnicate'"},
      {{"-x"}, "unknown option '-x'"},
      {{"-hx"}, "unknown option '-x'"},
      {{"-xh"}, "unknown option '-x'"},
      {{"-ä"}, "unknown option '-ä'"},
      {{"--help=me"}, "unknown option '--help=me'"},
      {{"--json=yes"}, "unknown option '--json=yes'"},
      {{"--rep", "/"}, "unknown option '--rep'"},
      {{"surplus"}, "unexpected argument 'surplus'"},
      {{"-"}, "unexpected argument '-'"},
      {{"--", "--json"}, "unexpected argument '--json'"},
      {{"save"}, "which folder should be made?"},
      {{"save", "a", "b"}, "unexpected argument 'b'"},
      {{"save", "a", "--json"}, "--json does not go with this subcommand"},
      {{"--json", "save", "a"}, "--json does not go with this subcommand"},
      {{"save", "a", "--watch"}, "--watch goes with no subcommand"},
      {{"save", "a", "--tap"}, "unknown option '--tap'"},
      {{"save", "a", "--anonymise=yes"}, "unknown option '--anonymise=yes'"},
      {{"save", "a", "--reports"}, "option '--reports' needs an argument"},
      {{"--anonymise"}, "unknown option '--anonymise'"},
      {{"compare"}, "what should be compared?"},
      {{"compare", "/nowhere/at/all"}, "there is no folder or document '/nowhere/at/all'"},
      {{"compare", "/", "/", "/"}, "unexpected argument '/'"},
      {{"compare", "/", "/", "--reports", "/"},
       "--reports goes with one state to compare, not with two"},
      {{"expect"}, "which file of expectations?"},
      {{"expect", file, "--json", "--tap"}, "--json and --tap do not go together"},
      {{"expect", file, "--write", "--tap"}, "--write makes a file and prints nothing"},
      {{"record"}, "which folder should be made?"},
      {{"metrics", "a"}, "unexpected argument 'a'"},
      {{"metrics", "--output"}, "option '--output' needs an argument"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.message);
    const Outcome outcome = inspect(row.arguments);
    EXPECT_EQ(outcome.exitStatus, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errorOutput,
              "tamberline-inspect: " + row.message + "\ntry 'tamberline-inspect --help'\n");
  }
}

TEST(InspectProgram, PrintsHelpAndVersionOnStandardOutput) {
  for (const char* option : {"--help", "-h"}) {
    const Outcome help = inspect({option});
    EXPECT_EQ(help.exitStatus, 0);
    EXPECT_TRUE(contains(help.output, "Usage: tamberline-inspect"));
    EXPECT_EQ(help.errorOutput, "");
  }
  for (const char* subcommand : {"save", "compare", "expect", "record", "metrics"}) {
    const Outcome help = inspect({subcommand, "--help"});
    EXPECT_EQ(help.exitStatus, 0);
    EXPECT_TRUE(contains(help.output, std::string("Usage: tamberline-inspect ") + subcommand));
  }
  for (const char* option : {"--version", "-V"}) {
    const Outcome version = inspect({option});
    EXPECT_EQ(version.exitStatus, 0);
    EXPECT_EQ(version.output, "tamberline-inspect " TAMBERLINE_VERSION "\n");
  }
}

TEST(InspectProgram, SaysWhichReportItCouldNotParse) {
  const TemporaryFolder folder;
  saveEmptySections(folder);
  folder.save("SPUSBDataType.json", "this is no JSON");
  const Outcome text = inspect({"--reports", folder.path().string()});
  EXPECT_EQ(text.exitStatus, 1);
  EXPECT_EQ(text.output, "Could not parse SPUSBDataType\n");
  EXPECT_EQ(text.errorOutput, "tamberline-inspect: Could not parse SPUSBDataType\n");
  const Outcome document = inspect({"--reports", folder.path().string(), "--json"});
  EXPECT_EQ(document.exitStatus, 1);
  const json content = json::parse(document.output);
  EXPECT_EQ(content["errorMessage"], "Could not parse SPUSBDataType");
  EXPECT_EQ(content["panel"]["state"], "error");
  EXPECT_EQ(content["panel"]["message"], "Could not parse SPUSBDataType");
}

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// A bug in a report is seen only in the report as it is.
TEST(InspectProgram, SavesReportsThatItCannotParseAsTheyAre) {
  const TemporaryFolder folder;
  saveEmptySections(folder);
  folder.save("SPUSBDataType.json", R"({"SPUSBDataType": [{"serial_num": "S-1000)");
  folder.save("AppleSmartBattery.plist", "<plist><dict>S-1000");
  const std::filesystem::path saved = folder.path() / "saved";
  const ToolOutput outcome =
      runInShell("2>&1", {"save", saved.string(), "--reports", folder.path().string()}, "");
  EXPECT_EQ(outcome.exitStatus, 0);
  EXPECT_EQ(
      outcome.standardOutput,
      "tamberline-inspect: SPUSBDataType.json cannot be parsed; it was saved as it is\n"
      "tamberline-inspect: AppleSmartBattery.plist cannot be parsed; it was saved as it is\n");
  for (const char* name : {"SPUSBDataType.json", "AppleSmartBattery.plist"}) {
    EXPECT_EQ(contentOf(saved / name), contentOf(folder.path() / name));
  }
}

TEST(InspectProgram, LetsNothingThroughInWhichNothingCouldBeReplaced) {
  const TemporaryFolder folder;
  saveEmptySections(folder);
  folder.save("AppleSmartBattery.plist", "<plist><dict>S-1000");
  const std::filesystem::path saved = folder.path() / "saved";
  const std::vector<std::string> arguments = {"save", "--anonymise", saved.string(), "--reports",
                                              folder.path().string()};
  const ToolOutput withoutDump = runInShell("2>&1", arguments, "");
  EXPECT_EQ(withoutDump.exitStatus, 0);
  EXPECT_EQ(withoutDump.standardOutput,
            "tamberline-inspect: AppleSmartBattery.plist cannot be parsed; it was left out\n");
  EXPECT_TRUE(std::filesystem::exists(saved / "SPUSBDataType.json"));
  EXPECT_FALSE(std::filesystem::exists(saved / "AppleSmartBattery.plist"));

  std::filesystem::remove_all(saved);
  folder.save("SPUSBDataType.json", R"({"SPUSBDataType": [{"serial_num": "S-1000)");
  const ToolOutput refused = runInShell("2>&1", arguments, "");
  EXPECT_EQ(refused.exitStatus, 1);
  EXPECT_EQ(refused.standardOutput, "tamberline-inspect: SPUSBDataType.json cannot be parsed, so "
                                    "nothing could be replaced in it, and nothing was saved\n");
  EXPECT_FALSE(std::filesystem::exists(saved));
}

TEST(InspectProgram, SaysWhyAFileCannotBeRead) {
  const TemporaryFolder folder;
  folder.save("large", "");
  std::filesystem::resize_file(folder.path() / "large", 256'000'001);
  folder.save("values", "[" + std::string(8'000'001, ',') + "]");
  folder.save("text", "no document");
  const std::string start = folder.path().string() + "/";
  const struct {
    std::vector<std::string> arguments;
    std::string message;
  } table[] = {
      {{"expect", start + "large"}, "cannot read '" + start + "large': larger than 1 MB"},
      {{"compare", start + "large"}, "cannot read '" + start + "large': larger than 256 MB"},
      {{"compare", start + "values"},
       "cannot read '" + start + "values': more than 8000000 values"},
      {{"compare", start + "text"},
       "'" + start + "text' holds no document of tamberline-inspect --json"},
      {{"expect", start + "missing"},
       "cannot read '" + start + "missing': No such file or directory"},
      {{"expect", start}, "cannot read '" + start + "': not a regular file"},
      {{"expect", "/dev/null"}, "cannot read '/dev/null': not a regular file"},
  };
  for (const auto& row : table) {
    const Outcome outcome = inspect(row.arguments);
    EXPECT_EQ(outcome.exitStatus, 2);
    EXPECT_EQ(outcome.errorOutput, "tamberline-inspect: " + row.message + "\n");
  }
}

TEST(InspectProgram, TakesAnEmptyFolderForToolsThatPrintedNothing) {
  const TemporaryFolder folder;
  const Outcome outcome = inspect({"--reports", folder.path().string()});
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_EQ(outcome.output, "Could not parse SPThunderboltDataType\n");
}

TEST(InspectProgram, SaysThatThereIsNothingToShow) {
  const TemporaryFolder folder;
  saveEmptySections(folder);
  const Outcome outcome = inspect({"--reports", folder.path().string()});
  EXPECT_EQ(outcome.exitStatus, 0);
  EXPECT_EQ(outcome.output, "No ports detected\n");
}

TEST(InspectProgram, SaysWhyItsOutputCannotBeWritten) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"--reports", sampleFolder + "/desk", "--json"}, {"--help"}, {"--version"}}) {
    const ToolOutput output = runInShell("2>&1 >/dev/full", arguments, "");
    EXPECT_EQ(output.exitStatus, 1);
    EXPECT_EQ(output.standardOutput,
              "tamberline-inspect: cannot write to standard output: No space left on device\n");
  }
}

/// The exit status as a shell sees it, after the shell command `before`. `yes` waits until the
/// reader has gone: it ends when it cannot write.
std::string endWithoutAReader(const std::string& before) {
  const std::string script =
      before + R"( { yes >&3 2>/dev/null; "$@" >&3; echo "status $?"; } 3>&1 >&2 | true)";
  return ChildProcessRunner()
      .runWithErrors("/bin/sh",
                     {"-c", script, "sh", INSPECT_PROGRAM, "--reports", sampleFolder + "/desk"})
      .standardOutput;
}

TEST(InspectProgram, EndsBySIGPIPEWithoutAMessageWhenItsReaderHasGone) {
  const std::string bySIGPIPE = "status " + std::to_string(128 + SIGPIPE) + "\n";
  EXPECT_EQ(endWithoutAReader(""), bySIGPIPE);
  EXPECT_EQ(endWithoutAReader("trap '' PIPE;"), bySIGPIPE);
}

TEST(InspectProgram, PassesNamesOfDevicesUnchangedToTheDocument) {
  const TemporaryFolder folder;
  saveEmptySections(folder);
  folder.save("SPUSBDataType.json", R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [
      {"_name": "<b>\u001b[31m\u0000Ä\u202e  "}]}]})");
  const Outcome document = inspect({"--reports", folder.path().string(), "--json"});
  const std::string name = json::parse(document.output)["usbBuses"][0]["devices"][0]["name"];
  EXPECT_EQ(name, std::string("<b>\x1b[31m\0Ä\u202e  ", 16));
  const Outcome text = inspect({"--reports", folder.path().string()});
  EXPECT_TRUE(contains(text.output, "└─ <b>\uFFFD[31m\uFFFDÄ\uFFFD  —\n")) << text.output;
}

} // namespace
} // namespace tamberline
