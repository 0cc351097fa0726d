#include "support/language_scope.h"
#include "views/volume_row.h"

#include <gtest/gtest.h>

#include <ostream>

namespace tamberline {

// How these values are printed when a comparison fails.
void PrintTo(const ColoredText& text, std::ostream* stream) {
  *stream << nameOf(text.color) << " \"" << text.text << "\"";
}

void PrintTo(const SymbolButton& button, std::ostream* stream) {
  *stream << nameOf(button.color) << " " << button.symbol << " \"" << button.tooltip << "\""
          << (button.isEnabled ? "" : " (disabled)");
}

namespace {

using Texts = std::vector<ColoredText>;

const BenchmarkPhase idle{BenchmarkPhase::Idle{}};
const BenchmarkPhase writing{BenchmarkPhase::Running{"Writing…"}};
const BenchmarkPhase failed{BenchmarkPhase::Failed{"Volume is read-only"}};
const EjectState ejecting{EjectState::Ejecting{}};
const EjectState ejectFailed{EjectState::Failed{"in use"}};

BenchmarkPhase done(double writeMBps, double readMBps) {
  return {BenchmarkPhase::Done{writeMBps, readMBps}};
}

const SymbolButton retest = {.symbol = "arrow.clockwise", .tooltip = "Run the test again"};
const SymbolButton eject = {.symbol = "eject.circle", .tooltip = "Eject this drive"};

TEST(VolumeRow, NamesTheVolume) {
  const VolumeRow row = volumeRow({"Data", "/Volumes/Data"});

  EXPECT_EQ(row.label, "Volume");
  EXPECT_EQ(row.name, "Data");
  EXPECT_EQ(row.mountPoint, "/Volumes/Data");
}

TEST(VolumeRow, SpeaksTheLanguageOfTheRun) {
  const LanguageScope spanish(AppLanguage::es);

  EXPECT_EQ(volumeRow({"Data", "/Volumes/Data"}).label, "Volumen");
  EXPECT_EQ(volumeTools(idle, std::nullopt).ejectButton->tooltip, "Expulsar esta unidad");
}

TEST(VolumeTest, IsOfferedByAnIdleVolume) {
  const VolumeTools tools = volumeTools(idle, std::nullopt);

  EXPECT_FALSE(tools.showsTestProgress);
  EXPECT_EQ(tools.testTexts, Texts{});
  EXPECT_EQ(tools.testButton,
            (SymbolButton{.symbol = "speedometer",
                          .tooltip = "Measure this volume's read & write speed (writes a temp "
                                     "file, then deletes it)"}));
}

TEST(VolumeTest, ShowsItsPhaseWhileItRuns) {
  const VolumeTools tools = volumeTools(writing, std::nullopt);

  EXPECT_TRUE(tools.showsTestProgress);
  EXPECT_EQ(tools.testTexts, (Texts{{"Writing…", Color::Secondary}}));
  EXPECT_EQ(tools.testButton, std::nullopt);
}

TEST(VolumeTest, ShowsItsProgressAndThatItCanBeStopped) {
  EXPECT_EQ(volumeTools(writing, std::nullopt).testProgress, "Writing…");
  EXPECT_EQ(volumeTools(writing, std::nullopt).stopTooltip, "Writing… · Stop the test");
  const VolumeTools tools = volumeTools(writing, std::nullopt, 40);
  EXPECT_EQ(tools.testTexts, (Texts{{"Writing…", Color::Secondary}}));
  EXPECT_EQ(tools.testProgress, "Writing… 40%");
  EXPECT_EQ(tools.stopTooltip, "Writing… 40% · Stop the test");
  EXPECT_EQ(volumeTools(done(1, 1), std::nullopt, 40).testProgress, "");
  const LanguageScope german(AppLanguage::de);
  EXPECT_EQ(volumeTools(writing, std::nullopt, 40).stopTooltip, "Writing… 40 % · Test abbrechen");
}

TEST(VolumeTest, ShowsBothSpeedsWhenDone) {
  const VolumeTools tools = volumeTools(done(412.4, 1021.7), std::nullopt);

  EXPECT_FALSE(tools.showsTestProgress);
  EXPECT_EQ(tools.testTexts, (Texts{{"W 412", Color::Blue}, {"R 1022 MB/s", Color::Green}}));
  EXPECT_EQ(tools.testButton, retest);
}

TEST(VolumeTest, ShowsWhyItFailed) {
  const VolumeTools tools = volumeTools(failed, std::nullopt);

  EXPECT_FALSE(tools.showsTestProgress);
  EXPECT_EQ(tools.testTexts, (Texts{{"Volume is read-only", Color::Orange}}));
  EXPECT_EQ(tools.testButton, retest);
}

TEST(VolumeEjection, IsOfferedUnlessATestRuns) {
  SymbolButton disabled = eject;
  disabled.isEnabled = false;

  EXPECT_EQ(volumeTools(idle, std::nullopt).ejectButton, eject);
  EXPECT_EQ(volumeTools(done(1, 1), std::nullopt).ejectButton, eject);
  EXPECT_EQ(volumeTools(failed, std::nullopt).ejectButton, eject);
  EXPECT_EQ(volumeTools(writing, std::nullopt).ejectButton, disabled);
  EXPECT_FALSE(volumeTools(idle, std::nullopt).showsEjectProgress);
}

TEST(VolumeEjection, ShowsProgressInPlaceOfItsButton) {
  const VolumeTools tools = volumeTools(idle, ejecting);

  EXPECT_TRUE(tools.showsEjectProgress);
  EXPECT_EQ(tools.ejectButton, std::nullopt);
  EXPECT_TRUE(tools.testButton.has_value());
}

TEST(VolumeEjection, OffersAnotherAttemptWithTheReasonOfTheFailure) {
  const VolumeTools tools = volumeTools(idle, ejectFailed);

  EXPECT_FALSE(tools.showsEjectProgress);
  EXPECT_EQ(tools.ejectButton,
            (SymbolButton{
                .symbol = "exclamationmark.circle", .tooltip = "in use", .color = Color::Orange}));
}

TEST(VolumeEjection, ShowsAReasonOfSeveralLinesInOne) {
  const EjectState severalLines{EjectState::Failed{
      "Unmount of disk6 failed:\r\n\tat least one volume\n\nis  in use\v\fnow\n"}};
  const VolumeTools tools = volumeTools(idle, severalLines);

  EXPECT_EQ(tools.ejectButton->tooltip,
            "Unmount of disk6 failed: at least one volume is in use now");
  EXPECT_EQ(tools.ejectFailure, tools.ejectButton->tooltip);
}

TEST(VolumeEjection, OffersNoSecondAttemptWhileATestRuns) {
  EXPECT_EQ(volumeTools(writing, ejectFailed).ejectButton,
            (SymbolButton{.symbol = "exclamationmark.circle",
                          .tooltip = "in use",
                          .color = Color::Orange,
                          .isEnabled = false}));
}

TEST(ToolsOfDrive, OfferNoEjectionWhileAnyVolumeOfItIsTestedOrEjected) {
  struct Row {
    const char* what;
    std::map<std::string, BenchmarkPhase> benchmarks;
    std::map<std::string, EjectState> ejectStates;
    bool canEject;
  };
  const std::vector<Row> rows = {
      {"idle", {}, {}, true},
      {"done", {{"/W", done(1, 1)}}, {}, true},
      {"failed", {{"/W", failed}}, {{"/W", ejectFailed}}, true},
      {"tested", {{"/W", writing}}, {}, false},
      {"ejected", {}, {{"/W", ejecting}}, false},
      {"another drive tested", {{"/X", writing}}, {}, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    std::vector<VolumeRow> volumes = {volumeRow({"Data", "/V"}), volumeRow({"More", "/W"})};
    addTools({row.benchmarks, row.ejectStates, {}}, volumes);
    EXPECT_EQ(volumes[0].tools.ejectButton->isEnabled, row.canEject);
    EXPECT_TRUE(volumes[0].tools.testButton->isEnabled);
  }
}

TEST(ToolsOfDrive, ShowTheProgressOfEachTest) {
  std::vector<VolumeRow> volumes = {volumeRow({"Data", "/V"}), volumeRow({"More", "/W"})};
  const std::map<std::string, BenchmarkPhase> benchmarks = {{"/V", writing}, {"/W", writing}};
  const std::map<std::string, int> progress = {{"/W", 15}};
  addTools({benchmarks, {}, progress}, volumes);
  EXPECT_EQ(volumes[0].tools.testProgress, "Writing…");
  EXPECT_EQ(volumes[1].tools.testProgress, "Writing… 15%");
}

} // namespace
} // namespace tamberline
