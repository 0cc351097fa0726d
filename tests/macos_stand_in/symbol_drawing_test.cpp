#include "macos_stand_in/fake_drawing.h"
#include "symbols/symbol_drawing.h"

#include <QImage>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

class MacSymbols : public testing::Test {
protected:
  void SetUp() override { FakeDrawing::reset(); }
  void TearDown() override {
    EXPECT_EQ(drawing.heldReferences, 0);
    EXPECT_EQ(drawing.openPools, 0);
    EXPECT_EQ(drawing.savedGraphicsStates, 0);
  }

  FakeDrawing& drawing = FakeDrawing::get();
};

/// One character per pixel: "#" for opaque black, "." for nothing, "?" for everything else.
std::string pixelsOf(const QImage& image) {
  std::string text;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      text += pixel == qRgba(0, 0, 0, 255) ? '#' : pixel == qRgba(0, 0, 0, 0) ? '.' : '?';
    }
    text += '\n';
  }
  return text;
}

TEST_F(MacSymbols, AreDrawnInBlackInTheMiddleOfTheirSquare) {
  EXPECT_EQ(pixelsOf(symbolDrawing("cable.connector", 8)), "..####..\n"
                                                           "..####..\n"
                                                           "..####..\n"
                                                           "..####..\n"
                                                           "..####..\n"
                                                           "..####..\n"
                                                           "..####..\n"
                                                           "..####..\n");
  EXPECT_EQ(drawing.calls,
            (Calls{"configure 8 regular", "symbol cable.connector", "apply", "template", "context",
                   "current context", "draw 2 0 4 8", "gray 0", "fill inside 0 0 8 8"}));
}

TEST_F(MacSymbols, AreEmptyIfTheSystemDoesNotHaveThem) {
  EXPECT_TRUE(symbolDrawing("unknown", 8).isNull());
}

TEST_F(MacSymbols, AreEmptyIfTheirNameIsNoText) {
  EXPECT_TRUE(symbolDrawing("\xff", 8).isNull());
  EXPECT_EQ(drawing.calls, Calls{});
}

TEST_F(MacSymbols, AreEmptyWithoutASize) {
  EXPECT_TRUE(symbolDrawing("cable.connector", 0).isNull());
}

TEST_F(MacSymbols, AreEmptyIfTheSystemHasNoRoomForThem) {
  drawing.givesContext = false;
  EXPECT_TRUE(symbolDrawing("cable.connector", 8).isNull());
}

} // namespace
} // namespace tamberline
