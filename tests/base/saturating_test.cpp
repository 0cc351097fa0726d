#include "base/saturating.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace tamberline {
namespace {

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

TEST(SaturatingSum, IsTheSumWhereItFits) {
  EXPECT_EQ(saturatingSum(500, 900), 1400);
  EXPECT_EQ(saturatingSum(500, -900), -400);
  EXPECT_EQ(saturatingSum(highest, lowest), -1);
  EXPECT_EQ(saturatingSum(highest - 1, 1), highest);
  EXPECT_EQ(saturatingSum(lowest + 1, -1), lowest);
  EXPECT_EQ(saturatingSum(highest, 0), highest);
  EXPECT_EQ(saturatingSum(lowest, 0), lowest);
}

TEST(SaturatingSum, StopsAtTheLimits) {
  EXPECT_EQ(saturatingSum(highest, 1), highest);
  EXPECT_EQ(saturatingSum(1, highest), highest);
  EXPECT_EQ(saturatingSum(highest, highest), highest);
  EXPECT_EQ(saturatingSum(lowest, -1), lowest);
  EXPECT_EQ(saturatingSum(-1, lowest), lowest);
  EXPECT_EQ(saturatingSum(lowest, lowest), lowest);
}

} // namespace
} // namespace tamberline
