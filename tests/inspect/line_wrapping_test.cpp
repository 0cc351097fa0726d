#include "inspect/text_line.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

/// The wrapped lines, one below the other.
std::string wrapped(const TextLine& line, int firstColumns, int nextColumns) {
  std::string text;
  for (const TextLine& part : wrapLine(line, firstColumns, nextColumns)) {
    for (const TextSpan& span : part) {
      text += span.text;
    }
    text += "\n";
  }
  return text;
}

TEST(LineWrapping, LeavesALineThatFitsAsItIs) {
  EXPECT_EQ(wrapped({{"one"}, {"  "}, {"two"}}, 8, 1), "one  two\n");
  EXPECT_EQ(wrapped({}, 8, 8), "\n");
  EXPECT_EQ(wrapped({{""}}, 8, 8), "\n");
  EXPECT_EQ(wrapped({{"  two  "}}, 8, 8), "  two  \n");
}

TEST(LineWrapping, BreaksBetweenEntriesWhereItCan) {
  const TextLine line = {{"Port 1"}, {"  "}, {"9 items"}, {"  "}, {"15 W port max"}};
  EXPECT_EQ(wrapped(line, 29, 29), "Port 1  9 items\n15 W port max\n");
  EXPECT_EQ(wrapped(line, 15, 15), "Port 1  9 items\n15 W port max\n");
  EXPECT_EQ(wrapped(line, 14, 14), "Port 1  9\nitems  15 W\nport max\n");
}

TEST(LineWrapping, BreaksAfterADotLikeBetweenEntries) {
  EXPECT_EQ(wrapped({{"0.9 W rated · 4.5 W allocated"}, {"  "}, {"port max"}}, 20, 30),
            "0.9 W rated ·\n4.5 W allocated  port max\n");
}

TEST(LineWrapping, BreaksBetweenWordsWhereEntriesAreLong) {
  EXPECT_EQ(wrapped({{"one"}, {"  "}, {"a name with many words"}}, 20, 12),
            "one  a name with\nmany words\n");
}

TEST(LineWrapping, KeepsADashWithTheWordBeforeIt) {
  EXPECT_EQ(wrapped({{"up to 10 Gb/s — device or cable"}}, 14, 16),
            "up to 10\nGb/s — device or\ncable\n");
  EXPECT_EQ(wrapped({{"3.8 W used · 15 W allocated"}}, 12, 20), "3.8 W used ·\n15 W allocated\n");
}

TEST(LineWrapping, BreaksAWordThatIsTooLongBetweenGraphemes) {
  EXPECT_EQ(wrapped({{"abcdefgh"}}, 3, 4), "abc\ndefg\nh\n");
  EXPECT_EQ(wrapped({{"u\u0308u\u0308u\u0308"}}, 2, 2), "u\u0308u\u0308\nu\u0308\n");
  EXPECT_EQ(wrapped({{"外付け"}}, 3, 4), "外\n付け\n");
  EXPECT_EQ(wrapped({{"外付け"}}, 1, 1), "外\n付\nけ\n");
}

TEST(LineWrapping, KeepsTheStyleOfEachPiece) {
  const std::vector<TextLine> lines =
      wrapLine({{"a b", Color::Red, true}, {" "}, {"c", Color::Blue}}, 1, 3);
  ASSERT_EQ(lines.size(), 2U);
  ASSERT_EQ(lines[0].size(), 1U);
  EXPECT_EQ(lines[0][0].color, Color::Red);
  ASSERT_EQ(lines[1].size(), 3U);
  EXPECT_EQ(lines[1][0].text, "b");
  EXPECT_EQ(lines[1][0].color, Color::Red);
  EXPECT_TRUE(lines[1][0].isBold);
  EXPECT_EQ(lines[1][2].text, "c");
  EXPECT_EQ(lines[1][2].color, Color::Blue);
  EXPECT_FALSE(lines[1][2].isBold);
}

} // namespace
} // namespace tamberline
