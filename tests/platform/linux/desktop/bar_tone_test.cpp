#include "platform/linux/desktop/bar_tone.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

/// A bar of one gray, with an icon of another gray in its middle.
QImage picture(int bar, int icon) {
  QImage image(10, 10, QImage::Format_RGB32);
  image.fill(qRgb(bar, bar, bar));
  for (int y = 1; y < 9; ++y) {
    for (int x = 1; x < 9; ++x) {
      image.setPixel(x, y, qRgb(icon, icon, icon));
    }
  }
  return image;
}

TEST(BarTone, IsThatOfTheEdgesForAnyIcon) {
  EXPECT_EQ(toneAtEdges(picture(0, 255)), BarTone::dark);
  EXPECT_EQ(toneAtEdges(picture(60, 255)), BarTone::dark);
  EXPECT_EQ(toneAtEdges(picture(127, 255)), BarTone::dark);
  EXPECT_EQ(toneAtEdges(picture(128, 0)), BarTone::light);
  EXPECT_EQ(toneAtEdges(picture(255, 0)), BarTone::light);
}

TEST(BarTone, IsUnknownForAnEmptyPicture) {
  EXPECT_EQ(toneAtEdges(QImage()), BarTone::unknown);
  EXPECT_EQ(barToneAround(QRect()), BarTone::unknown);
  EXPECT_EQ(barToneAround(QRect(-5000, -5000, 24, 24)), BarTone::unknown);
}

TEST(BarTone, OfASinglePixelIsThePixelsTone) {
  QImage image(1, 1, QImage::Format_RGB32);
  image.fill(Qt::white);
  EXPECT_EQ(toneAtEdges(image), BarTone::light);
}

} // namespace
} // namespace tamberline
