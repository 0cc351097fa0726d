#include "app/menu_bar_icon.h"

#include <QImage>
#include <gtest/gtest.h>

#include <algorithm>

namespace tamberline {
namespace {

constexpr BarTone everyTone[] = {BarTone::asPalette, BarTone::dark, BarTone::light,
                                 BarTone::unknown};

QImage drawing(BarTone tone) {
  return menuBarIcon(tone).pixmap(QSize(36, 36)).toImage();
}

/// How many pixels of the icon are visible on a bar of this gray: clearly darker or brighter.
int seenOn(int barGray, BarTone tone) {
  const QImage image = drawing(tone);
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor ink = image.pixelColor(x, y);
      const int shown = (qGray(ink.rgb()) * ink.alpha() + barGray * (255 - ink.alpha())) / 255;
      count += std::abs(shown - barGray) > 100 ? 1 : 0;
    }
  }
  return count;
}

TEST(MenuBarIcon, IsATemplateInEveryResolution) {
  for (const BarTone tone : everyTone) {
    const QIcon icon = menuBarIcon(tone);
    EXPECT_TRUE(icon.isMask());
    EXPECT_EQ(icon.availableSizes(), (QList<QSize>{{18, 18}, {36, 36}, {54, 54}}));
  }
}

TEST(MenuBarIcon, IsVisibleOnTheBarThatItIsMadeFor) {
  constexpr int black = 0;
  constexpr int white = 255;
  constexpr int least = 60; // of 1,296 pixels; most of the others are between the lines
  EXPECT_GT(seenOn(black, BarTone::dark), least);
  EXPECT_GT(seenOn(white, BarTone::light), least);
  EXPECT_GT(seenOn(white, BarTone::asPalette), least); // the platform's windows are light here
  EXPECT_EQ(seenOn(black, BarTone::light), 0);
  EXPECT_EQ(seenOn(white, BarTone::dark), 0);
}

TEST(MenuBarIcon, IsVisibleOnEveryBarIfTheToneIsUnknown) {
  for (const int gray : {0, 40, 90, 128, 170, 220, 255}) {
    EXPECT_GT(seenOn(gray, BarTone::unknown), 25) << gray;
  }
}

} // namespace
} // namespace tamberline
