#include "platform/macos/symbol_placement.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(SymbolPlacement, IsInTheMiddleOfTheSquareAndInsideIt) {
  const struct {
    QSizeF symbol;
    double side;
    QRectF place;
  } rows[] = {
      {{18, 18}, 18, {0, 0, 18, 18}},
      {{8, 12}, 18, {5, 3, 8, 12}}, // keeps its size beside larger ones
      {{36, 18}, 18, {0, 4.5, 18, 9}},
      {{9, 36}, 18, {6.75, 0, 4.5, 18}},
      {{3e6, 1e6}, 30, {0, 10, 30, 10}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(symbolPlacement(row.symbol, row.side), row.place) << row.symbol.width();
  }
}

TEST(SymbolPlacement, OfASymbolWithoutASizeIsEmpty) {
  for (const QSizeF size : {QSizeF(0, 0), QSizeF(0, 12), QSizeF(12, 0), QSizeF(-1, 5)}) {
    EXPECT_TRUE(symbolPlacement(size, 18).isEmpty());
  }
}

} // namespace
} // namespace tamberline
