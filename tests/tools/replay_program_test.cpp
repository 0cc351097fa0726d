#include "platform/posix/child_process_runner.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace tamberline {
namespace {

const std::string deskSample = SAMPLES_FOLDER "/desk";

struct Outcome {
  std::string output;
  std::string errorOutput;
  std::optional<int> exitStatus;
};

/// Without a display, even if the machine has one.
ToolOutput runInShell(const std::string& redirection, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {
      "-c",
      "exec env -u LANGUAGE -u LC_ALL -u LC_MESSAGES -u LANG -u DISPLAY -u WAYLAND_DISPLAY "
      "-u QT_QPA_PLATFORMTHEME -u QT_SCALE_FACTOR \"$@\" " +
          redirection,
      "sh", REPLAY_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  return ChildProcessRunner().run("/bin/sh", words);
}

Outcome replay(const std::vector<std::string>& arguments) {
  const ToolOutput output = runInShell("", arguments);
  const ToolOutput errorOutput = runInShell("2>&1 >/dev/null", arguments);
  return {output.standardOutput, errorOutput.standardOutput, output.exitStatus};
}

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// From the header of a PNG; 0 x 0 if it is not a PNG.
struct PictureSize {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

PictureSize sizeOfPicture(const std::string& png) {
  if (png.size() < 24 || png.compare(1, 3, "PNG") != 0) {
    return {};
  }
  const auto number = [&](std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t index = at; index < at + 4; ++index) {
      value = value << 8U | static_cast<unsigned char>(png[index]);
    }
    return value;
  };
  return {number(16), number(20)};
}

class ReplayProgram : public testing::Test {
protected:
  /// A picture with these options, after checking that there was no error.
  std::string picture(std::vector<std::string> options) {
    const std::filesystem::path file = folder.path() / "panel.png";
    std::filesystem::remove(file);
    options.insert(options.begin(), {deskSample, "--screenshot", file.string()});
    const Outcome outcome = replay(options);
    EXPECT_EQ(outcome.exitStatus, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errorOutput, "");
    return contentOf(file);
  }

  TemporaryFolder folder;
};

TEST_F(ReplayProgram, MakesAPictureWithoutADisplay) {
  const PictureSize size = sizeOfPicture(picture({}));
  EXPECT_EQ(size.width, 400U);
  EXPECT_GE(size.height, 200U);
  EXPECT_LE(size.height, 1360U);
}

TEST_F(ReplayProgram, MakesTheSamePictureEachTime) {
  EXPECT_EQ(picture({"--language", "de"}), picture({"--language", "de"}));
}

TEST_F(ReplayProgram, ShowsTheButtonsOfVolumesAsIfTheyWorked) {
  EXPECT_NE(picture({"--expand-all", "--enable-volumes"}), picture({"--expand-all"}));
}

TEST_F(ReplayProgram, EveryOptionChangesThePicture) {
  const std::string plain = picture({});
  for (const std::vector<std::string>& options :
       std::vector<std::vector<std::string>>{{"--language", "fr"},
                                             {"--theme", "dark"},
                                             {"--font-scale", "1.5"},
                                             {"--expand-all"},
                                             {"--search", "quarry"}}) {
    SCOPED_TRACE(options.front());
    const std::string other = picture(options);
    EXPECT_NE(other, plain);
    EXPECT_EQ(sizeOfPicture(other).width, 400U);
  }
}

TEST_F(ReplayProgram, OpenedPanelIsHigher) {
  EXPECT_GT(sizeOfPicture(picture({"--expand-all"})).height, sizeOfPicture(picture({})).height);
}

TEST_F(ReplayProgram, SearchingDoesNotMakeThePanelHigher) {
  EXPECT_EQ(sizeOfPicture(picture({"--search", "a"})).height, sizeOfPicture(picture({})).height);
}

TEST_F(ReplayProgram, WritesThePositionsOfThePicturesTexts) {
  const std::filesystem::path file = folder.path() / "places.json";
  const PictureSize size = sizeOfPicture(picture({"--places", file.string(), "--language", "it"}));
  std::map<std::string, nlohmann::json> places;
  double previousTop = 0;
  for (const nlohmann::json& place : nlohmann::json::parse(contentOf(file))) {
    EXPECT_GE(place["y"], previousTop);
    previousTop = place["y"];
    EXPECT_LE(place["x"].get<double>() + place["width"].get<double>(), size.width);
    places.emplace(place["text"], place);
  }
  for (const char* text : {"Tamberline", "Cerca dispositivi…", "Espandi tutto",
                           "Porta Thunderbolt 1", "40 Gb/s", "Apri il manuale utente", "Esci"}) {
    EXPECT_EQ(places.count(text), 1U) << text;
  }
  EXPECT_LT(places["Porta Thunderbolt 1"]["x"], places["40 Gb/s"]["x"]);
  EXPECT_GT(places["Esci"]["y"], size.height - 60.0);
}

TEST_F(ReplayProgram, FailsWhenThePlacesCannotBeWritten) {
  const std::string file = (folder.path() / "missing" / "places.json").string();
  const Outcome outcome = replay(
      {deskSample, "--screenshot", (folder.path() / "panel.png").string(), "--places", file});
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_EQ(outcome.errorOutput, "tamberline-replay: cannot write '" + file + "'\n");
}

TEST_F(ReplayProgram, FailsWhenThePictureCannotBeWritten) {
  const std::string file = (folder.path() / "missing" / "panel.png").string();
  const Outcome outcome = replay({deskSample, "--screenshot", file});
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_EQ(outcome.errorOutput, "tamberline-replay: cannot write '" + file + "'\n");
}

TEST_F(ReplayProgram, SaysWhatIsWrongWithItsArguments) {
  const struct {
    std::vector<std::string> arguments;
    std::string complaint;
  } rows[] = {
      {{}, "which folder of saved reports?"},
      {{"/missing"}, "there is no folder '/missing'"},
      {{deskSample, "more"}, "unexpected argument 'more'"},
      {{"--", deskSample, "--wrong"}, "unexpected argument '--wrong'"},
      {{deskSample, "--language", "tlh"},
       "there is no language 'tlh'; there are en, de, fr, it, es"},
      {{deskSample, "--theme", "blue"}, "there is no theme 'blue'; there are light and dark"},
      {{"--theme=", deskSample}, "there is no theme ''; there are light and dark"},
      {{deskSample, "--font-scale", "big"}, "the font scale is a number from 0.5 to 4, not 'big'"},
      {{deskSample, "--font-scale", "5"}, "the font scale is a number from 0.5 to 4, not '5'"},
      {{deskSample, "--font-scale", "nan"}, "the font scale is a number from 0.5 to 4, not 'nan'"},
      {{deskSample, "--font-scale", " 1"}, "the font scale is a number from 0.5 to 4, not ' 1'"},
      {{deskSample, "--font-scale", "1,5"}, "the font scale is a number from 0.5 to 4, not '1,5'"},
      {{deskSample, "--screenshot"}, "option '--screenshot' needs an argument"},
      {{deskSample, "--enable-volumes"},
       "volumes of another computer cannot be tested: --enable-volumes goes with --screenshot"},
      {{deskSample, "--places", "places.json"},
       "there are places only in a picture: --places goes with --screenshot"},
      {{deskSample, "--screenshot", "panel.jpg"},
       "a picture is a PNG file, and the name of 'panel.jpg' does not end in .png"},
      {{deskSample, "--wrong"}, "unknown option '--wrong'"},
      {{deskSample, "-xV"}, "unknown option '-x'"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = replay(row.arguments);
    EXPECT_EQ(outcome.exitStatus, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errorOutput,
              "tamberline-replay: " + row.complaint + "\ntry 'tamberline-replay --help'\n");
  }
}

TEST_F(ReplayProgram, PrintsHelpAndVersionOnRequest) {
  for (const char* option : {"--help", "-h"}) {
    EXPECT_EQ(replay({option}).output.substr(0, 28), "Usage: tamberline-replay DIR");
    EXPECT_EQ(replay({option}).exitStatus, 0);
  }
  for (const char* option : {"--version", "-V"}) {
    EXPECT_EQ(replay({option}).output, "tamberline-replay " TAMBERLINE_VERSION "\n");
  }
}

} // namespace
} // namespace tamberline
