#include "platform/linux/symbols/art_drawing.h"
#include "platform/linux/symbols/symbol_art.h"
#include "symbols/symbol_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tamberline {
namespace {

int alphaAt(const QImage& image, int x, int y) {
  return image.pixelColor(x, y).alpha();
}

std::string inSvg(const std::string& elements) {
  return R"(<svg viewBox="0 0 14 14" fill="none" stroke="#000" stroke-width="1">)" + elements +
         "</svg>";
}

/// Rows of "#" for black, "o" for white, "." for nothing and "+" for anything else.
std::string drawn(const std::string& svg, int pixels = 14) {
  const QImage image = drawnArt(svg, pixels);
  std::string text;
  for (int y = 0; y < image.height(); ++y) {
    text += "\n";
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      text += color == QColor(Qt::black)   ? '#'
              : color == QColor(Qt::white) ? 'o'
              : color.alpha() == 0         ? '.'
                                           : '+';
    }
  }
  return text;
}

TEST(ArtDrawing, DrawsSharpLines) {
  EXPECT_EQ(
      drawn(inSvg(R"(<path d="M1 2 H5"/><rect x="1" y="4" width="3" height="2"/>)"), 7),
      drawn(inSvg(R"(<path d="M1 2.4 H5.2"/><rect x="1.2" y="4" width="3" height="2"/>)"), 7));
  EXPECT_EQ(drawn(inSvg(R"(<path d="M-2 0.5 H20"/>)")).substr(0, 30),
            "\n##############\n..............");
}

TEST(ArtDrawing, FillsShapesAndCutsHoles) {
  EXPECT_EQ(drawn(inSvg(R"(<rect x="2" y="2" width="10" height="10" fill="#000" stroke="none"/>
                           <path d="M5.5 6.5 H8.5" stroke="#fff"/>
                           <circle cx="40" cy="40" r="3"/>)"))
                .substr(31, 14),
            "..##########..");
  EXPECT_NE(drawn(inSvg(R"(<rect x="2" y="2" width="10" height="10" fill="#000" stroke="none"/>
                           <path d="M5.5 6.5 H8.5" stroke="#fff"/>)"))
                .find("oo"),
            std::string::npos);
}

TEST(ArtDrawing, LeavesOutWhatItDoesNotKnow) {
  const std::string line = R"(<path d="M1.5 2.5 H5.5"/>)";
  const std::string plain = drawn(inSvg(line));
  EXPECT_NE(plain.find('#'), std::string::npos);
  EXPECT_EQ(drawn(inSvg("<text>M0 0</text><g><circle r='5'/></g>" + line)), plain);
  EXPECT_EQ(drawn(inSvg(line + "<path/>")), plain);
}

TEST(ArtDrawing, OfSomethingElseIsNothing) {
  for (const char* svg : {"", "svg", "<html/>", "<svg", "\xff\xfe"}) {
    EXPECT_TRUE(drawnArt(svg, 14).isNull() || drawn(svg).find('#') == std::string::npos) << svg;
  }
  for (const int pixels : {0, -1}) {
    EXPECT_TRUE(drawnArt(inSvg(""), pixels).isNull());
  }
}

TEST(SymbolArt, HasEverySymbolOnceInOrder) {
  const auto art = symbolArt();
  EXPECT_GE(art.size(), 41U);
  EXPECT_TRUE(std::is_sorted(art.begin(), art.end(), [](const SymbolArt& a, const SymbolArt& b) {
    return a.symbol <= b.symbol;
  }));
  for (const SymbolArt& row : art) {
    EXPECT_EQ(artOf(row.symbol), row.svg);
  }
}

TEST(SymbolArt, HasNoDrawingForOtherNames) {
  for (const char* symbol : {"", "Camera", "camer", "cameras", "camera ", "battery", "zzz"}) {
    EXPECT_EQ(artOf(symbol), "") << symbol;
  }
}

TEST(SymbolArt, UsesOnlyWhatCanBeDrawn) {
  for (const SymbolArt& row : symbolArt()) {
    for (const char* element :
         {"<g", "<use", "<text", "<polygon", "<line", "<ellipse", "transform"}) {
      EXPECT_EQ(row.svg.find(element), std::string_view::npos) << row.symbol << " has " << element;
    }
  }
}

/// A pixel that a straight vertical or horizontal edge covers only partly makes it blurred. Curves
/// and slanted lines have such pixels, and they are few in a small symbol.
TEST(SymbolArt, IsSharpAtEveryScale) {
  for (const SymbolArt& row : symbolArt()) {
    for (const int pixels : {14, 21, 28}) {
      const QImage image = symbolImage(row.symbol, Qt::black, pixels, 1);
      int full = 0;
      int partial = 0;
      for (int y = 0; y < pixels; ++y) {
        for (int x = 0; x < pixels; ++x) {
          const int alpha = alphaAt(image, x, y);
          full += alpha > 230 ? 1 : 0;
          partial += alpha > 25 && alpha <= 230 ? 1 : 0;
        }
      }
      EXPECT_GT(full, 3) << row.symbol << " at " << pixels;
      EXPECT_LT(partial, pixels * 6) << row.symbol << " at " << pixels;
    }
  }
}

/// Straight lines run exactly along pixels.
TEST(SymbolArt, HasStraightLinesWithoutBlur) {
  for (const int pixels : {14, 21, 28}) {
    const QImage image = symbolImage("display", Qt::black, pixels, 1);
    for (int y = 0; y < pixels; ++y) {
      const int alpha = alphaAt(image, pixels * 5 / 14, y);
      EXPECT_TRUE(alpha == 0 || alpha == 255) << pixels << " pixels, row " << y;
    }
  }
}

/// Compares how much ink there is, not where: at a distance only that is left.
TEST(SymbolArt, IsToldApartWithoutColor) {
  constexpr int leastDifference = 9; // of 196 pixels
  const auto art = symbolArt();
  for (auto row = art.begin(); row != art.end(); ++row) {
    const QImage image = symbolImage(row->symbol, Qt::black, 14, 1);
    for (auto other = art.begin(); other != row; ++other) {
      const QImage otherImage = symbolImage(other->symbol, Qt::black, 14, 1);
      int different = 0;
      for (int y = 0; y < 14; ++y) {
        for (int x = 0; x < 14; ++x) {
          different += std::abs(alphaAt(image, x, y) - alphaAt(otherImage, x, y)) > 100 ? 1 : 0;
        }
      }
      const bool areLevels =
          row->symbol.starts_with("battery.") && other->symbol.starts_with("battery.");
      EXPECT_GE(different, areLevels ? 3 : leastDifference)
          << row->symbol << " looks like " << other->symbol;
    }
  }
}

} // namespace
} // namespace tamberline
