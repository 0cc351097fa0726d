#include "app/manual_contents.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

std::vector<ContentsEntry> entriesOf(const char* file) {
  QPdfDocument document;
  EXPECT_EQ(document.load(QString::fromUtf8(file)), QPdfDocument::Error::None);
  return contentsOf(document);
}

TEST(ManualContents, HaveALineForEachChapter) {
  const std::vector<ContentsEntry> entries =
      entriesOf(MANUAL_WITH_CHAPTERS_FOLDER "/Manual-en.pdf");
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].page, 0);
  EXPECT_EQ(entries[0].targetPage, 1);
  EXPECT_EQ(entries[1].page, 0);
  EXPECT_EQ(entries[1].targetPage, 2);
  EXPECT_EQ(entries[1].target.y(), 180);
}

TEST(ManualContents, ReachFromTheTitleToTheNumber) {
  const std::vector<ContentsEntry> entries =
      entriesOf(MANUAL_WITH_CHAPTERS_FOLDER "/Manual-en.pdf");
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_TRUE(entries[1].place.contains(QPointF(45, 137)));
  EXPECT_TRUE(entries[1].place.contains(QPointF(200, 137)));
  EXPECT_TRUE(entries[1].place.contains(QPointF(253, 137)));
  EXPECT_TRUE(entries[1].place.contains(QPointF(45, 144))); // below the letters
  EXPECT_FALSE(entries[0].place.intersects(entries[1].place));
  EXPECT_FALSE(entries[1].place.contains(QPointF(45, 117)));
  EXPECT_FALSE(entries[1].place.contains(QPointF(270, 137)));
}

TEST(ManualContents, AreEmptyWithoutBookmarks) {
  EXPECT_TRUE(entriesOf(MANUALS_FOLDER "/Manual-en.pdf").empty());
}

} // namespace
} // namespace tamberline
