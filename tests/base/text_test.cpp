#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tamberline {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(Text, ContainsIsCaseSensitive) {
  EXPECT_TRUE(contains("Up to 40 Gb/s", "40"));
  EXPECT_TRUE(contains("MagSafe 3@1", "MagSafe"));
  EXPECT_FALSE(contains("magsafe 3@1", "MagSafe"));
  EXPECT_FALSE(contains("", "5"));
}

TEST(Text, EveryTextContainsTheEmptyOne) {
  EXPECT_TRUE(contains("USB31Bus", ""));
  EXPECT_TRUE(contains("", ""));
}

TEST(Text, TrimmingTakesAsciiWhiteSpaceOffBothEnds) {
  EXPECT_EQ(trimmed(" \t\n\v\f\r96 \t\n\v\f\r"), "96");
  EXPECT_EQ(trimmed("a b"), "a b");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(Text, TrimmingLeavesTheNoBreakSpace) {
  EXPECT_EQ(trimmed("96\u00A0"), "96\u00A0");
}

TEST(Text, SplittingKeepsEmptyPieces) {
  EXPECT_EQ(split("thunderbolt_bus_2", '_'), (Pieces{"thunderbolt", "bus", "2"}));
  EXPECT_EQ(split("_a__b_", '_'), (Pieces{"", "a", "", "b", ""}));
  EXPECT_EQ(split("abc", '_'), (Pieces{"abc"}));
  EXPECT_EQ(split("", '_'), (Pieces{""}));
}

TEST(Text, SplittingMayDropEmptyPieces) {
  EXPECT_EQ(splitNonEmpty("@USB-C@@2@", '@'), (Pieces{"USB-C", "2"}));
  EXPECT_EQ(splitNonEmpty("USB-C", '@'), (Pieces{"USB-C"}));
  EXPECT_EQ(splitNonEmpty("@@", '@'), Pieces{});
  EXPECT_EQ(splitNonEmpty("", '@'), Pieces{});
}

TEST(Text, JoiningPutsTheSeparatorBetweenThePieces) {
  EXPECT_EQ(joined({"Port 1", "Dock", "SSD"}, " › "), "Port 1 › Dock › SSD");
  EXPECT_EQ(joined({"", "", ""}, "/"), "//");
  EXPECT_EQ(joined({"Dock"}, "/"), "Dock");
  EXPECT_EQ(joined({}, "/"), "");
}

TEST(Text, ReplacingGoesThroughTheTextOnce) {
  EXPECT_EQ(replacedAll("usb4_gen3_x1", "_", " "), "usb4 gen3 x1");
  EXPECT_EQ(replacedAll("aaa", "aa", "a"), "aa");
  EXPECT_EQ(replacedAll("Thunderbolt Thunderbolt 5", "Thunderbolt ", "TB"), "TBTB5");
  EXPECT_EQ(replacedAll("abc", "x", "y"), "abc");
  EXPECT_EQ(replacedAll("", "x", "y"), "");
}

} // namespace
} // namespace tamberline
