#include "platform/linux/symbols/theme_icons.h"
#include "symbols/symbol_image.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string_view>

namespace tamberline {
namespace {

/// The theme has one drawing for both.
constexpr std::string_view sameAsArrowUpCircle = "arrow.up.circle.fill";

int pixelsWithInk(const QImage& image, int leastAlpha) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      count += image.pixelColor(x, y).alpha() >= leastAlpha ? 1 : 0;
    }
  }
  return count;
}

TEST(ThemeIcons, HasEverySymbolOnce) {
  std::set<std::string_view> symbols;
  for (const SymbolIcon& row : symbolTable()) {
    EXPECT_TRUE(symbols.insert(row.symbol).second) << row.symbol;
    EXPECT_EQ(themeIconName(row.symbol), row.themeIcon);
  }
}

TEST(ThemeIcons, HasNoIconForOtherNames) {
  for (const std::string_view symbol : {"", "Camera", "camer", "cameras", "camera ", "battery"}) {
    EXPECT_EQ(themeIconName(symbol), "") << symbol;
  }
}

/// At these sizes, one-pixel lines of the drawing's grid are spread over two pixels.
TEST(ThemeIcons, NamesOnlyIconsThatTheThemeDraws) {
  for (const SymbolIcon& row : symbolTable()) {
    SCOPED_TRACE(row.symbol);
    for (const int size : {14, 18}) {
      const QImage image = symbolImage(row.symbol, Qt::black, size, 1);
      EXPECT_GE(pixelsWithInk(image, 100), 8) << size;
      EXPECT_LE(pixelsWithInk(image, 1), size * size * 9 / 10) << size;
    }
  }
}

TEST(ThemeIcons, NamesIconsThatLookDifferent) {
  const auto table = symbolTable();
  for (auto row = table.begin(); row != table.end(); ++row) {
    const QImage image = symbolImage(row->symbol, Qt::black, 14, 1);
    for (auto other = table.begin(); other != row; ++other) {
      if (row->symbol != sameAsArrowUpCircle) {
        EXPECT_NE(image, symbolImage(other->symbol, Qt::black, 14, 1))
            << row->symbol << " looks like " << other->symbol;
      }
    }
  }
}

TEST(ThemeIcons, NamesIconsThatLookTheSameAtEveryRatio) {
  for (const SymbolIcon& row : symbolTable()) {
    const QImage small = symbolImage(row.symbol, Qt::black, 16, 1);
    const QImage large = symbolImage(row.symbol, Qt::black, 16, 4)
                             .scaled(small.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int difference = 0;
    for (int y = 0; y < small.height(); ++y) {
      for (int x = 0; x < small.width(); ++x) {
        difference += std::abs(small.pixelColor(x, y).alpha() - large.pixelColor(x, y).alpha());
      }
    }
    EXPECT_LT(difference / (16 * 16), 16) << row.symbol;
  }
}

} // namespace
} // namespace tamberline
