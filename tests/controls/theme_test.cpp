#include "controls/color_math.h"
#include "controls/theme.h"
#include "support/counted_signal.h"
#include "support/palettes.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

const QPalette light = lightTestPalette();
const QPalette dark = darkTestPalette();

/// The platform's look is restored after each test.
class ThemeTest : public testing::Test {
protected:
  ThemeTest() { QGuiApplication::setPalette(light); }
  ~ThemeTest() override {
    QGuiApplication::setPalette(QPalette());
    QGuiApplication::setFont(fontBefore);
  }

  static void setFontSize(int pixels) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(pixels);
    QGuiApplication::setFont(font);
  }

  static QColor color(const Theme& theme, const char* name) {
    return theme.property(name).value<QColor>();
  }
  static QFont font(const Theme& theme, const char* name) {
    return theme.property(name).value<QFont>();
  }

  const QFont fontBefore = QGuiApplication::font();
};

TEST_F(ThemeTest, TakesThePlatformsColours) {
  const Theme theme(1);
  EXPECT_FALSE(theme.isDark());
  EXPECT_EQ(color(theme, "window"), QColor("#eff0f1"));
  EXPECT_EQ(color(theme, "card"), QColor("#ffffff"));
  EXPECT_EQ(color(theme, "text"), QColor("#232629"));
  EXPECT_EQ(color(theme, "accent"), QColor("#3daee9"));
}

TEST_F(ThemeTest, KnowsADarkLook) {
  const struct {
    const char* window;
    bool isDark;
  } rows[] = {{"#000000", true},  {"#2a2e32", true},  {"#707070", true},
              {"#808080", false}, {"#ffffff", false}, {"#0000ff", true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.window);
    QGuiApplication::setPalette(testPalette(row.window, row.window, Qt::red, Qt::blue));
    EXPECT_EQ(Theme(1).isDark(), row.isDark);
  }
}

TEST_F(ThemeTest, HasSecondaryTextThatCanBeReadOnACard) {
  for (const QPalette& palette :
       {light, dark, testPalette("#909090", "#7a7a7a", "#000000", "#7a7a7a")}) {
    QGuiApplication::setPalette(palette);
    const Theme theme(1);
    EXPECT_GE(contrastRatio(color(theme, "secondary"), color(theme, "card")), 4.5);
  }
}

TEST_F(ThemeTest, FollowsThePlatformsColours) {
  const Theme theme(1);
  const CountedSignal changes(&theme, &Theme::changed);
  QGuiApplication::setPalette(dark);
  EXPECT_GE(changes.count(), 1);
  EXPECT_TRUE(theme.isDark());
  EXPECT_EQ(color(theme, "card"), QColor("#1b1e20"));
}

TEST_F(ThemeTest, FollowsThePlatformsFont) {
  setFontSize(13);
  const Theme theme(1);
  const CountedSignal changes(&theme, &Theme::changed);
  setFontSize(26);
  EXPECT_GE(changes.count(), 1);
  EXPECT_EQ(theme.scale(), 2);
  EXPECT_EQ(font(theme, "bodyFont").pixelSize(), 26);
}

TEST_F(ThemeTest, IsAsLargeAsThePlatformsText) {
  setFontSize(13);
  const Theme theme(1);
  const struct {
    const char* name;
    int pixels;
    int largePixels;
    QFont::Weight weight;
  } rows[] = {
      {"titleFont", 14, 21, QFont::DemiBold},       {"bodyFont", 13, 20, QFont::Normal},
      {"subheadlineFont", 13, 20, QFont::DemiBold}, {"captionFont", 12, 18, QFont::Medium},
      {"caption2Font", 10, 15, QFont::Normal},      {"badgeFont", 10, 15, QFont::DemiBold},
  };
  const Theme large(1.5);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(font(theme, row.name).pixelSize(), row.pixels);
    EXPECT_EQ(font(theme, row.name).weight(), row.weight);
    EXPECT_EQ(font(large, row.name).pixelSize(), row.largePixels);
  }
  EXPECT_EQ(theme.scale(), 1);
  EXPECT_EQ(theme.symbolSize(), 14);
  EXPECT_EQ(theme.smallSymbolSize(), 11);
  EXPECT_EQ(theme.buttonSize(), 24);
  EXPECT_EQ(theme.minNameWidth(), 120);
  EXPECT_EQ(theme.minTitleWidth(), 150);
  EXPECT_EQ(large.scale(), 1.5);
  EXPECT_EQ(large.symbolSize(), 21);
  EXPECT_EQ(large.smallSymbolSize(), 17);
  EXPECT_EQ(large.buttonSize(), 36);
  EXPECT_EQ(large.minNameWidth(), 180);
  EXPECT_EQ(large.minTitleWidth(), 225);
}

TEST_F(ThemeTest, MultipliesThePlatformsTextByItsOwnScale) {
  setFontSize(26);
  EXPECT_EQ(Theme(1.5).scale(), 3);
}

} // namespace
} // namespace tamberline
