#include "platform/linux/symbols/symbol_art.h"
#include "symbols/symbol_image.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tamberline {
namespace {

const QColor blue(10, 132, 255);

bool isTransparent(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y).alpha() != 0) {
        return false;
      }
    }
  }
  return true;
}

TEST(SymbolImage, HasOnlyTheRequestedColor) {
  for (const SymbolArt& row : symbolArt()) {
    SCOPED_TRACE(row.symbol);
    const QImage image = symbolImage(row.symbol, blue, 16, 2);
    int solidPixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (pixel.alpha() == 255) {
          EXPECT_EQ(pixel, blue);
          ++solidPixels;
        }
      }
    }
    EXPECT_GT(solidPixels, 0);
  }
}

TEST(SymbolImage, CutsWhiteMarksOutOfFilledShapes) {
  const QImage warning = symbolImage("exclamationmark.triangle", blue, 14, 1);
  EXPECT_EQ(warning.pixelColor(4, 10), blue) << "left of the mark";
  EXPECT_EQ(warning.pixelColor(6, 7).alpha(), 0) << "the mark";
  EXPECT_EQ(warning.pixelColor(8, 10), blue) << "right of the mark";
}

TEST(SymbolImage, IsAsTranslucentAsTheColor) {
  const QImage opaque = symbolImage("externaldrive", blue, 16, 1);
  const QImage faint = symbolImage("externaldrive", QColor(10, 132, 255, 128), 16, 1);
  for (int y = 0; y < opaque.height(); ++y) {
    for (int x = 0; x < opaque.width(); ++x) {
      EXPECT_EQ(faint.pixelColor(x, y).alpha(), opaque.pixelColor(x, y).alpha() * 128 / 255);
    }
  }
}

TEST(SymbolImage, HasAsManyPixelsAsThePointsNeed) {
  const struct {
    qreal sizePoints;
    qreal devicePixelRatio;
    int pixels;
  } rows[] = {{14, 1, 14}, {14, 2, 28}, {18, 3, 54}, {14, 1.5, 21}, {13, 1.25, 16}};
  for (const auto& row : rows) {
    for (const std::string_view symbol : {"camera", "no.such.symbol"}) {
      const QImage image = symbolImage(symbol, blue, row.sizePoints, row.devicePixelRatio);
      EXPECT_EQ(image.size(), QSize(row.pixels, row.pixels));
      EXPECT_EQ(image.devicePixelRatio(), row.devicePixelRatio);
    }
  }
}

TEST(SymbolImage, IsRedrawnForMorePixels) {
  const QImage enlarged = symbolImage("chevron.right", blue, 14, 1).scaled(QSize(28, 28));
  EXPECT_NE(symbolImage("chevron.right", blue, 14, 2).convertToFormat(enlarged.format()), enlarged);
}

TEST(SymbolImage, OfAnUnknownSymbolIsTransparent) {
  EXPECT_TRUE(isTransparent(symbolImage("no.such.symbol", blue, 14, 2)));
  EXPECT_TRUE(isTransparent(symbolImage("", blue, 14, 2)));
}

TEST(SymbolImage, WithoutASizeIsEmpty) {
  EXPECT_TRUE(symbolImage("camera", blue, 0, 2).isNull());
  EXPECT_TRUE(symbolImage("camera", blue, -1, 2).isNull());
}

TEST(SymbolImageCache, GivesTheSameImagesAsWithoutACache) {
  SymbolImageCache cache;
  EXPECT_EQ(cache.image("camera", blue, 14, 2), symbolImage("camera", blue, 14, 2));
  EXPECT_TRUE(isTransparent(cache.image("no.such.symbol", blue, 14, 2)));
}

TEST(SymbolImageCache, DrawsTheSameImageOnce) {
  SymbolImageCache cache;
  const QImage image = cache.image("camera", blue, 14, 2);
  EXPECT_EQ(cache.image("camera", blue, 14, 2).cacheKey(), image.cacheKey());
  EXPECT_EQ(cache.usedBytes(), image.sizeInBytes());
}

TEST(SymbolImageCache, KeepsImagesApartThatDifferInAnything) {
  SymbolImageCache cache;
  const QImage image = cache.image("camera", blue, 14, 2);
  EXPECT_NE(cache.image("keyboard", blue, 14, 2), image);
  EXPECT_NE(cache.image("camera", Qt::red, 14, 2), image);
  EXPECT_NE(cache.image("camera", QColor(10, 132, 255, 128), 14, 2), image);
  EXPECT_EQ(cache.image("camera", blue, 28, 1).devicePixelRatio(), 1);
  EXPECT_EQ(cache.image("camera", blue, 14, 3).size(), QSize(42, 42));
}

TEST(SymbolImageCache, ForgetsTheOldestWhenItIsFull) {
  const qsizetype imageBytes = symbolImage("camera", blue, 14, 1).sizeInBytes();
  SymbolImageCache cache(2 * imageBytes);
  const QImage camera = cache.image("camera", blue, 14, 1);
  const QImage keyboard = cache.image("keyboard", blue, 14, 1);
  cache.image("display", blue, 14, 1);
  EXPECT_EQ(cache.usedBytes(), 2 * imageBytes);
  EXPECT_EQ(cache.image("keyboard", blue, 14, 1).cacheKey(), keyboard.cacheKey());
  EXPECT_NE(cache.image("camera", blue, 14, 1).cacheKey(), camera.cacheKey());
}

TEST(SymbolImageCache, GivesImagesThatAreTooLargeToKeep) {
  SymbolImageCache cache(1);
  EXPECT_EQ(cache.image("camera", blue, 14, 1), symbolImage("camera", blue, 14, 1));
  EXPECT_EQ(cache.usedBytes(), 0);
}

} // namespace
} // namespace tamberline
