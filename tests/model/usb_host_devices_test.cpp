#include "model/usb_host_devices.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>

namespace tamberline {
namespace {

TEST(ContainerIDs, FindsTheIdentifierOfALocation) {
  ContainerIDs identifiers;
  identifiers.add(0x01100000, "A");
  identifiers.add(0x02100000, "B");
  EXPECT_EQ(identifiers.find(0x01100000), "A");
  EXPECT_EQ(identifiers.find(0x02100000), "B");
  EXPECT_EQ(identifiers.find(0x03100000), std::nullopt);
  EXPECT_EQ(identifiers.size(), 2U);
}

TEST(ContainerIDs, KeepsTheFirstIdentifierOfALocation) {
  ContainerIDs identifiers;
  identifiers.add(0x01100000, "first");
  identifiers.add(0x01100000, "second");
  EXPECT_EQ(identifiers.find(0x01100000), "first");
  EXPECT_EQ(identifiers.size(), 1U);
}

TEST(ContainerIDs, TreatsANegativeLocationAsItsUnsignedSpelling) {
  ContainerIDs identifiers;
  identifiers.add(-15728640, "negative");
  EXPECT_EQ(identifiers.find(0xFF100000), "negative");
  EXPECT_EQ(identifiers.find(-15728640), "negative");
}

TEST(ContainerIDs, PrefersTheSpellingThatItIsAskedFor) {
  ContainerIDs identifiers;
  identifiers.add(std::numeric_limits<std::int32_t>::min(), "signed");
  EXPECT_EQ(identifiers.find(0x80000000), "signed");
  identifiers.add(0x80000000, "unsigned");
  EXPECT_EQ(identifiers.find(0x80000000), "unsigned");
  EXPECT_EQ(identifiers.find(std::numeric_limits<std::int32_t>::min()), "signed");
}

TEST(ContainerIDs, LeavesNumbersBeyond32BitsUnchanged) {
  ContainerIDs identifiers;
  identifiers.add(std::numeric_limits<std::int64_t>::min(), "lowest");
  identifiers.add(std::int64_t{std::numeric_limits<std::int32_t>::min()} - 1, "33 bits, negative");
  identifiers.add(0x100000001, "33 bits");
  EXPECT_EQ(identifiers.find(std::numeric_limits<std::int64_t>::min()), "lowest");
  EXPECT_EQ(identifiers.find(0x100000001), "33 bits");
  EXPECT_EQ(identifiers.find(0x7FFFFFFF), std::nullopt);
  EXPECT_EQ(identifiers.find(1), std::nullopt);
  EXPECT_EQ(identifiers.find(0), std::nullopt);
}

} // namespace
} // namespace tamberline
