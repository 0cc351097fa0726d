#include "platform/linux/sysfs/read/cable_identity.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace tamberline::sysfs {
namespace {

constexpr std::uint64_t passive = 3U << 27U;
constexpr std::uint64_t active = 4U << 27U;
constexpr std::uint64_t threeAmps = 1U << 5U;
constexpr std::uint64_t fiveAmps = 2U << 5U;
constexpr std::uint64_t fiftyVolts = 3U << 9U;

struct CableCase {
  const char* name;
  std::uint64_t header;
  std::uint64_t product;
  bool isPowerDelivery3;
  CableIdentity identity;
};

TEST(CableIdentity, IsDecodedFromItsBits) {
  const std::vector<CableCase> cases = {
      {"charging cable",
       passive,
       threeAmps,
       true,
       {.maxMilliamperes = 3000, .maxMillivolts = 20'000, .megabitsOfLane = 480}},
      {"5 Gb/s", passive, threeAmps | 1, false, {.maxMilliamperes = 3000, .megabitsOfLane = 5000}},
      {"10 Gb/s",
       passive,
       fiveAmps | 2,
       false,
       {.maxMilliamperes = 5000, .megabitsOfLane = 10'000}},
      {"20 Gb/s", active, fiveAmps | 3, false, {.maxMilliamperes = 5000, .megabitsOfLane = 20'000}},
      {"40 Gb/s", active, fiveAmps | 4, false, {.maxMilliamperes = 5000, .megabitsOfLane = 40'000}},
      {"reserved speeds", passive, threeAmps | 5, false, {.maxMilliamperes = 3000}},
      {"another reserved speed", passive, threeAmps | 7, false, {.maxMilliamperes = 3000}},
      {"no current", passive, 1, false, {.megabitsOfLane = 5000}},
      {"a reserved current", passive, 3U << 5U | 1, false, {.megabitsOfLane = 5000}},
      {"50 V",
       passive,
       fiveAmps | fiftyVolts | 2,
       true,
       {.maxMilliamperes = 5000, .maxMillivolts = 50'000, .megabitsOfLane = 10'000}},
      {"30 V, which was withdrawn",
       passive,
       fiveAmps | 1U << 9U,
       true,
       {.maxMilliamperes = 5000, .maxMillivolts = 20'000, .megabitsOfLane = 480}},
      {"40 V, which was withdrawn",
       passive,
       fiveAmps | 2U << 9U,
       true,
       {.maxMilliamperes = 5000, .maxMillivolts = 20'000, .megabitsOfLane = 480}},
      {"the bits of the voltage before it was there",
       passive,
       fiveAmps | fiftyVolts,
       false,
       {.maxMilliamperes = 5000, .megabitsOfLane = 480}},
      {"not read yet", 0, 0, true, {}},
      {"a device", 2U << 27U, fiveAmps | 2, true, {}},
      {"a powered device in a plug", 6U << 27U, fiveAmps | 2, true, {}},
      {"all bits",
       std::numeric_limits<std::uint64_t>::max(),
       std::numeric_limits<std::uint64_t>::max(),
       true,
       {}},
      {"all bits of a cable",
       passive,
       std::numeric_limits<std::uint64_t>::max(),
       true,
       {.maxMillivolts = 50'000}},
  };
  for (const CableCase& one : cases) {
    EXPECT_EQ(cableIdentityIn(one.header, one.product, one.isPowerDelivery3), one.identity)
        << one.name;
  }
}

} // namespace
} // namespace tamberline::sysfs
