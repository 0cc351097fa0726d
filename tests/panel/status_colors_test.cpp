#include "controls/color_math.h"
#include "controls/theme.h"
#include "panel/status_colors.h"
#include "support/counted_signal.h"
#include "support/palettes.h"
#include "views/view_enums.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

std::vector<Color> allColors() {
  std::vector<Color> colors;
  for (std::size_t index = 0; index < ColorSet::size; ++index) {
    colors.push_back(static_cast<Color>(index));
  }
  return colors;
}

/// The platform's look is restored after each test.
class StatusColorsTest : public testing::Test {
protected:
  StatusColorsTest() { QGuiApplication::setPalette(lightTestPalette()); }
  ~StatusColorsTest() override { QGuiApplication::setPalette(QPalette()); }

  static QColor fill(Color color) {
    const Theme theme(1);
    return StatusColors(theme).fills().of(color);
  }
};

TEST_F(StatusColorsTest, TakeThePlatformsColours) {
  EXPECT_EQ(fill(Color::Accent), QColor("#3daee9"));
  EXPECT_EQ(fill(Color::Primary), QColor("#232629"));
  EXPECT_EQ(fill(Color::TextBackground), QColor("#ffffff"));
  EXPECT_EQ(fill(Color::Clear).alpha(), 0);
}

TEST_F(StatusColorsTest, FillWithTheSameAmberInLightAndDark) {
  for (const QPalette& palette : {lightTestPalette(), darkTestPalette()}) {
    QGuiApplication::setPalette(palette);
    EXPECT_EQ(fill(Color::Amber), QColor::fromRgbF(0.9F, 0.7F, 0.0F));
  }
}

TEST_F(StatusColorsTest, KnowEveryColourAsFillAndAsInk) {
  const Theme theme(1);
  const StatusColors colors(theme);
  for (const Color color : allColors()) {
    EXPECT_TRUE(colors.fills().of(color).isValid()) << nameOf(color);
    EXPECT_TRUE(colors.inks().of(color).isValid()) << nameOf(color);
  }
}

TEST_F(StatusColorsTest, WriteWithInksThatCanBeReadOnACard) {
  const struct {
    const char* description;
    QPalette palette;
  } rows[] = {
      {"light", lightTestPalette()},
      {"dark", darkTestPalette()},
      {"a grey card", testPalette("#909090", "#7a7a7a", "#000000", "#7a7a7a")},
      {"black on black", testPalette(Qt::black, Qt::black, Qt::black, Qt::black)},
  };
  for (const auto& row : rows) {
    QGuiApplication::setPalette(row.palette);
    const Theme theme(1);
    const StatusColors colors(theme);
    for (const Color color : allColors()) {
      SCOPED_TRACE(row.description + (" " + std::string(nameOf(color))));
      EXPECT_GE(contrastRatio(colors.inks().of(color), theme.card()), 4.5);
    }
  }
}

TEST_F(StatusColorsTest, WriteWithInksThatCanBeReadOnEveryBackgroundOfText) {
  for (const QPalette& palette : {lightTestPalette(), darkTestPalette()}) {
    QGuiApplication::setPalette(palette);
    const Theme theme(1);
    const StatusColors colors(theme);
    const auto window = theme.property("window").value<QColor>();
    const auto field = theme.property("field").value<QColor>();
    const QColor count = blended(colors.fills().of(Color::Grey), theme.card(), 0.15);
    for (const Color color : allColors()) {
      SCOPED_TRACE(nameOf(color));
      const QColor badge = blended(colors.fills().of(color), theme.card(), 0.12);
      for (const QColor& background : {window, field, badge, count}) {
        EXPECT_GE(contrastRatio(colors.inks().of(color), background), 4.5);
      }
    }
  }
}

TEST_F(StatusColorsTest, FollowTheTheme) {
  const Theme theme(1);
  const StatusColors colors(theme);
  const CountedSignal changes(&colors, &StatusColors::changed);
  QGuiApplication::setPalette(darkTestPalette());
  EXPECT_GE(changes.count(), 1);
  EXPECT_EQ(colors.fills().of(Color::Green), QColor("#3cc46a"));
}

} // namespace
} // namespace tamberline
