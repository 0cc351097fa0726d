#include "controls/color_math.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(ContrastRatio, IsWhatTheGuidelinesSay) {
  const struct {
    const char* first;
    const char* second;
    double ratio;
  } rows[] = {
      {"#000000", "#ffffff", 21.0}, {"#ffffff", "#ffffff", 1.0},  {"#767676", "#ffffff", 4.54},
      {"#777777", "#ffffff", 4.48}, {"#ff0000", "#ffffff", 4.00}, {"#0000ff", "#ffffff", 8.59},
      {"#00ff00", "#ffffff", 1.37}, {"#808080", "#000000", 5.32}, {"#0a0a0a", "#000000", 1.06},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.first << " on " << row.second);
    EXPECT_NEAR(contrastRatio(row.first, row.second), row.ratio, 0.005);
    EXPECT_EQ(contrastRatio(row.first, row.second), contrastRatio(row.second, row.first));
  }
}

TEST(Blending, MixesEachChannel) {
  EXPECT_EQ(blended("#ff0000", "#0000ff", 0), QColor("#0000ff"));
  EXPECT_EQ(blended("#ff0000", "#0000ff", 1), QColor("#ff0000"));
  EXPECT_EQ(blended(Qt::white, Qt::black, 0.2).name(), "#333333");
  EXPECT_EQ(blended("#ff0000", "#0000ff", 0.6).name(), "#990066");
}

TEST(ReadableColor, IsTheColourItselfWhereItCanBeRead) {
  EXPECT_EQ(readableOn({Qt::white}, "#0000ff", 4.5), QColor("#0000ff"));
  EXPECT_EQ(readableOn({Qt::black}, "#808080", 4.5), QColor("#808080"));
}

TEST(ReadableColor, IsDarkerOnLightAndLighterOnDark) {
  const QColor yellow("#ffcf3d");
  const QColor onWhite = readableOn({Qt::white}, yellow, 4.5);
  EXPECT_LT(onWhite.lightness(), yellow.lightness());
  EXPECT_NEAR(onWhite.hueF(), yellow.hueF(), 0.01F);
  EXPECT_LT(contrastRatio(onWhite, Qt::white), 5) << "no darker than needed";
  const QColor blue("#1a3f9c");
  EXPECT_GT(readableOn({Qt::black}, blue, 4.5).lightness(), blue.lightness());
}

TEST(ReadableColor, CanBeReadOnEveryGrey) {
  for (int grey = 0; grey < 256; ++grey) {
    const QColor background(grey, grey, grey);
    for (const QColor& color : {background, QColor("#e2b007"), QColor("#8a4fd3")}) {
      EXPECT_GE(contrastRatio(readableOn({background}, color, 4.5), background), 4.5) << grey;
    }
  }
}

TEST(ReadableColor, IsTheFarEndWhereNothingIsEnough) {
  EXPECT_EQ(readableOn({"#808080"}, "#808080", 20), QColor(Qt::black));
  EXPECT_EQ(readableOn({"#303030"}, "#808080", 20), QColor(Qt::white));
}

} // namespace
} // namespace tamberline
