#include "macos_stand_in/file_systems.h"
#include "platform/volume_io.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using Requests = std::vector<std::string>;

/// As the Mac numbers what a program may ask of an open file.
const std::string noCache = "48";
const std::string fullSync = "51";

TEST(MacVolumeIo, TellsWhatMayStillBeWritten) {
  constexpr std::uint64_t manyBlocks = std::uint64_t{1} << 40U;
  freshMacFileSystems().mounted = {{"/dev/disk4s1", "/Volumes/Data", 4096, 25},
                                   {"/dev/disk5s1", "/Volumes/Vast", 1U << 20U, manyBlocks},
                                   {"/dev/disk6s1", "/Volumes/Full", 512, 0},
                                   {"server", "/Volumes/Sizeless", 512, 0, 0}};
  EXPECT_EQ(availableBytes("/Volumes/Data"), 102'400U);
  EXPECT_EQ(availableBytes("/Volumes/Vast"), manyBlocks << 20U);
  EXPECT_EQ(availableBytes("/Volumes/Full"), 0U);
  EXPECT_EQ(availableBytes("/Volumes/Sizeless"), std::nullopt);
  EXPECT_EQ(availableBytes("/Volumes/Other"), std::nullopt);
}

TEST(MacVolumeIo, TurnsTheCacheOffAndOn) {
  MacFileSystems& fileSystems = freshMacFileSystems();
  EXPECT_TRUE(bypassCache(7));
  useCache(7);
  EXPECT_EQ(fileSystems.requests, (Requests{noCache + " on 7 with 1", noCache + " on 7 with 0"}));
}

TEST(MacVolumeIo, SaysWhenTheCacheCannotBeTurnedOff) {
  freshMacFileSystems().refusesRequests = true;
  EXPECT_FALSE(bypassCache(7));
}

/// No file is open under -1, so the ordinary way, which is this system's own, leaves its error.
TEST(MacVolumeIo, FlushesToTheMediumAndTheOrdinaryWayWhereThatIsRefused) {
  MacFileSystems& fileSystems = freshMacFileSystems();
  EXPECT_TRUE(flushToMedium(-1));
  EXPECT_EQ(fileSystems.requests, Requests{fullSync + " on -1"});
  EXPECT_EQ(errno, 0);
  fileSystems.refusesRequests = true;
  EXPECT_FALSE(flushToMedium(-1));
  EXPECT_EQ(fileSystems.requests, (Requests{fullSync + " on -1", fullSync + " on -1"}));
  EXPECT_EQ(errno, EBADF);
}

TEST(MacVolumeIo, HasNothingToForgetBeforeReading) {
  const MacFileSystems& fileSystems = freshMacFileSystems();
  dropCachedPages(7);
  EXPECT_EQ(fileSystems.requests, Requests());
}

} // namespace
} // namespace tamberline
