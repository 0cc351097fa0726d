#include "app/panel_placement.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

constexpr QSize panel{400, 490};

/// A screen of 1920 x 1080 points with a bar of 40 points at one edge.
constexpr QRect belowTopBar{0, 40, 1920, 1040};
constexpr QRect aboveBottomBar{0, 0, 1920, 1040};
constexpr QRect besideLeftBar{40, 0, 1880, 1080};
constexpr QRect besideRightBar{0, 0, 1880, 1080};
constexpr QRect wholeScreen{0, 0, 1920, 1080};
constexpr QRect screenAtLeft{-1920, -200, 1920, 1040};

std::string text(const QPoint& point) {
  return std::to_string(point.x()) + ", " + std::to_string(point.y());
}

TEST(PanelPosition, IsBesideTheTrayIcon) {
  struct Row {
    std::string description;
    QRect icon;
    QRect available;
    std::string expected;
  };
  const std::vector<Row> rows = {
      {"below an icon in a bar at the top", {1000, 8, 24, 24}, belowTopBar, "811, 48"},
      {"above an icon in a bar at the bottom", {1000, 1048, 24, 24}, aboveBottomBar, "811, 542"},
      {"at the right of a bar at the left", {8, 500, 24, 24}, besideLeftBar, "48, 266"},
      {"at the left of a bar at the right", {1888, 500, 24, 24}, besideRightBar, "1472, 266"},
      {"below an icon that floats in the upper half", {1000, 100, 24, 24}, wholeScreen, "811, 124"},
      {"above an icon that floats in the lower half", {1000, 900, 24, 24}, wholeScreen, "811, 410"},
      {"not beyond the right edge", {1890, 8, 24, 24}, belowTopBar, "1512, 48"},
      {"not beyond the left edge", {10, 8, 24, 24}, belowTopBar, "8, 48"},
      {"not beyond the bottom beside a bar", {8, 1050, 24, 24}, besideLeftBar, "48, 582"},
      {"not beyond the top beside a bar", {1888, 4, 24, 24}, besideRightBar, "1472, 8"},
      {"below the corner of two bars", {8, 8, 24, 24}, {40, 40, 1880, 1040}, "48, 48"},
      {"above the corner of two bars", {1888, 1048, 24, 24}, {0, 0, 1880, 1040}, "1472, 542"},
      {"on a screen at negative positions", {-100, 848, 24, 24}, screenAtLeft, "-408, 342"},
      {"the start of a screen that is too small", {150, 0, 24, 24}, {0, 24, 300, 200}, "0, 24"},
      {"all of a screen that is just as wide", {370, 0, 24, 24}, {0, 24, 400, 276}, "0, 24"},
      {"half of the room on each side of a narrow screen",
       {0, 0, 24, 24},
       {0, 0, 406, 800},
       "3, 24"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(text(panelPosition(row.icon, {5, 5}, panel, row.available)), row.expected)
        << row.description;
  }
}

TEST(PanelPosition, IsInTheCornerNextToTheCursorWithoutAnIconGeometry) {
  struct Row {
    std::string description;
    QPoint cursor;
    QRect available;
    std::string expected;
  };
  const std::vector<Row> rows = {
      {"top left", {100, 10}, belowTopBar, "8, 48"},
      {"top right", {1900, 10}, belowTopBar, "1512, 48"},
      {"bottom left", {100, 1070}, aboveBottomBar, "8, 542"},
      {"bottom right", {1900, 1070}, aboveBottomBar, "1512, 542"},
      {"bottom right of a screen at the left", {-10, 830}, screenAtLeft, "-408, 342"},
      {"the start of a screen that is too small", {299, 199}, {0, 0, 300, 200}, "0, 0"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(text(panelPosition(QRect(), row.cursor, panel, row.available)), row.expected)
        << row.description;
    EXPECT_EQ(text(panelPosition(QRect(700, 0, 0, 0), row.cursor, panel, row.available)),
              row.expected)
        << row.description;
  }
}

} // namespace
} // namespace tamberline
