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

/// The Mac's number of this request for an open file.
const std::string noCache = "48";
const std::string fullSync = "51";

TEST(MacVolumeIo, ReportsTheFreeSpace) {
  constexpr std::uint64_t manyBlocks = std::uint64_t{1} << 40U;
  MacFileSystems& fileSystems = freshMacFileSystems();
  fileSystems.mounted = {{"/dev/disk4s1", "/Volumes/Data", 4096, 25},
                         {"/dev/disk5s1", "/Volumes/Vast", 1U << 20U, manyBlocks},
                         {"/dev/disk6s1", "/Volumes/Full", 512, 0},
                         {"server", "/Volumes/Sizeless", 512, 0, 0}};
  fileSystems.openFolders = {
      {3, "/Volumes/Data"}, {4, "/Volumes/Vast"}, {5, "/Volumes/Full"}, {6, "/Volumes/Sizeless"}};
  EXPECT_EQ(availableBytes(3), 102'400U);
  EXPECT_EQ(availableBytes(4), manyBlocks << 20U);
  EXPECT_EQ(availableBytes(5), 0U);
  EXPECT_EQ(availableBytes(6), std::nullopt);
  EXPECT_EQ(availableBytes(7), std::nullopt);
}

TEST(MacVolumeIo, DistinguishesAVolumeFromItsReplacement) {
  MacFileSystems& fileSystems = freshMacFileSystems();
  fileSystems.mounted = {{.device = "/dev/disk4s1", .mountPoint = "/Volumes/Data", .number = 16}};
  fileSystems.openFolders = {{3, "/Volumes/Data"}};
  const VolumeIdentity first = identityOf(3, "/Volumes/Data");
  EXPECT_TRUE(identityOf(3, "/Volumes/Data").isSameVolumeAs(first));
  fileSystems.mounted[0].number = 17;
  EXPECT_FALSE(identityOf(3, "/Volumes/Data").isSameVolumeAs(first));
  fileSystems.mounted[0].number = 16;
  fileSystems.mounted[0].device = "/dev/disk5s1";
  EXPECT_FALSE(identityOf(3, "/Volumes/Data").isSameVolumeAs(first));
}

TEST(MacVolumeIo, DoesNotTreatAnOrdinaryFolderAsAVolume) {
  MacFileSystems& fileSystems = freshMacFileSystems();
  fileSystems.mounted = {{.device = "/dev/disk3s1", .mountPoint = "/"}};
  fileSystems.openFolders = {{3, "/"}};
  EXPECT_EQ(identityOf(3, "/Volumes/Data").text, "");
  EXPECT_EQ(identityOf(4, "/Volumes/Data").text, "");
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

/// No file is open under -1, so the ordinary way, which is this system's own, sets its error.
TEST(MacVolumeIo, FlushesToTheMediumOrElseTheOrdinaryWay) {
  MacFileSystems& fileSystems = freshMacFileSystems();
  EXPECT_TRUE(flushToMedium(-1));
  EXPECT_EQ(fileSystems.requests, Requests{fullSync + " on -1"});
  EXPECT_EQ(errno, 0);
  fileSystems.refusesRequests = true;
  EXPECT_FALSE(flushToMedium(-1));
  EXPECT_EQ(fileSystems.requests, (Requests{fullSync + " on -1", fullSync + " on -1"}));
  EXPECT_EQ(errno, EBADF);
}

TEST(MacVolumeIo, HasNoCacheToDropBeforeReading) {
  const MacFileSystems& fileSystems = freshMacFileSystems();
  dropCachedPages(7);
  EXPECT_FALSE(isServedByProgram(7));
  EXPECT_EQ(fileSystems.requests, Requests());
}

TEST(MacVolumeIo, ReportsNothingThatTheSystemDoesNotReport) {
  dropCachedPages(-1); // every file system bypasses the cache on request
  EXPECT_FALSE(isServedByProgram(-1));
  EXPECT_FALSE(dropDevicePages(-1));
  EXPECT_EQ(bytesReadFromDevice(-1), std::nullopt);
}

} // namespace
} // namespace tamberline
