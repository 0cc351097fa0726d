#include "desktop/screen_corner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

TEST(ScreenCorner, IsTheOneNextToThePlace) {
  struct Row {
    std::string description;
    std::optional<QPoint> place;
    QRect screen;
    Qt::Corner expected;
  };
  const QRect screen(0, 0, 1280, 800);
  const std::vector<Row> rows = {
      {"a tray at the top right", QPoint(1200, 10), screen, Qt::TopRightCorner},
      {"a tray at the bottom right", QPoint(1200, 790), screen, Qt::BottomRightCorner},
      {"a tray at the top left", QPoint(20, 10), screen, Qt::TopLeftCorner},
      {"a tray at the bottom left", QPoint(20, 790), screen, Qt::BottomLeftCorner},
      {"a second screen at the right",
       QPoint(1300, 790),
       {1280, 0, 1280, 800},
       Qt::BottomLeftCorner},
      {"a tray that does not tell", std::nullopt, screen, Qt::TopRightCorner},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(cornerNextTo(row.place, row.screen), row.expected) << row.description;
  }
}

} // namespace
} // namespace tamberline
