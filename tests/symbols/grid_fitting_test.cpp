#include "platform/linux/symbols/grid_fitting.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

std::string textOf(const QPainterPath& path) {
  std::string text;
  for (int index = 0; index < path.elementCount(); ++index) {
    const QPainterPath::Element element = path.elementAt(index);
    text += element.type == QPainterPath::MoveToElement   ? " M"
            : element.type == QPainterPath::LineToElement ? " L"
                                                          : " C";
    text +=
        QString::number(element.x).toStdString() + "," + QString::number(element.y).toStdString();
  }
  return text.empty() ? text : text.substr(1);
}

/// A line whose width is an odd number of pixels runs through the middle of a pixel, any other
/// between two.
TEST(GridFitting, PutsTheEdgesOfLinesBetweenPixels) {
  const struct {
    double pixelsPerPoint;
    double strokePoints;
    double strokePixels;
    double points;
    double pixels;
  } rows[] = {
      {1, 1.25, 1, 0.5, 0.5},   {1, 1.25, 1, 6.5, 6.5},  {1, 1.25, 1, 7, 7.5},
      {1.5, 1.25, 2, 0.5, 1},   {1.5, 1.25, 2, 6.5, 10}, {1.5, 1.25, 2, 12.5, 19},
      {2, 1.25, 3, 0.5, 1.5},   {2, 1.25, 3, 6.5, 13.5}, {2, 1.25, 3, 12.5, 25.5},
      {0.5, 1.25, 1, 6.5, 3.5}, {1, 0, 0, 6.4, 6},       {1, 0, 0, 6.5, 7},
      {0.1, 1.25, 1, 6.5, 0.5},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.points << " at " << row.pixelsPerPoint);
    const GridFitting fitting(row.pixelsPerPoint, row.strokePoints);
    EXPECT_EQ(fitting.strokePixels(), row.strokePixels);
    EXPECT_EQ(fitting.fitted(row.points), row.pixels);
  }
}

TEST(GridFitting, ReadsPaths) {
  const struct {
    const char* data;
    const char* path;
  } rows[] = {
      {"", ""},
      {"M1 2 L3 4", "M1,2 L3,4"},
      {" M 1,2L3,4 ", "M1,2 L3,4"},
      {"M1 2 H5 V6", "M1,2 L5,2 L5,6"},
      {"M1 1 H3 V3 Z", "M1,1 L3,1 L3,3 L1,1"},
      {"M1 2 C2 3 4 5 6 7", "M1,2 C2,3 C4,5 C6,7"},
      {"M1.4 2.6 L-1 0.5", "M1,3 L-1,1"},
      {"M1.4 2 C2.4 3 3 4 3.6 5", "M1,2 C2,3 C3.4,4 C4,5"}, // handles move with their ends
  };
  for (const auto& row : rows) {
    EXPECT_EQ(textOf(GridFitting(1, 0).path(QString::fromLatin1(row.data))), row.path) << row.data;
  }
}

TEST(GridFitting, EndsAPathBeforeWhatItDoesNotKnow) {
  for (const char* rest : {"A1 1 0 0 0 2 2", "l1 1", "L1", "L", " 1 2", "?", "C1 2 3 4 5", "é"}) {
    EXPECT_EQ(textOf(GridFitting(1, 0).path("M1 2 L3 4" + QString::fromUtf8(rest))), "M1,2 L3,4")
        << rest;
  }
}

} // namespace
} // namespace tamberline
