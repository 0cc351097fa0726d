#include "platform/macos/mounted_media.h"
#include "registry/decoded_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace tamberline {
namespace {

/// One line for each volume, by location: "34603008 | Data | /Volumes/Data".
std::string volumesText(const VolumesByLocation& volumes) {
  std::vector<std::int64_t> locations;
  for (const auto& [location, volumesThere] : volumes) {
    locations.push_back(location);
  }
  std::sort(locations.begin(), locations.end());
  std::string text;
  for (const std::int64_t location : locations) {
    for (const USBVolume& volume : volumes.at(location)) {
      text += std::to_string(location) + " | " + volume.name + " | " + volume.mountPoint + "\n";
    }
  }
  return text;
}

std::string joined(const std::string& dump, const std::vector<Mount>& mounts) {
  return volumesText(mountedVolumesIn(decodedList(dump), mounts));
}

std::string entry(const std::string& members, const std::string& children = "") {
  return "<dict>" + members + "<key>IORegistryEntryChildren</key><array>" + children +
         "</array></dict>";
}

std::string device(const std::string& locationID, const std::string& children) {
  return entry("<key>IOObjectClass</key><string>IOUSBHostDevice</string>"
               "<key>locationID</key><integer>" +
                   locationID + "</integer>",
               children);
}

std::string medium(const std::string& name, const std::string& children = "") {
  return entry("<key>BSD Name</key><string>" + name + "</string>", children);
}

std::string namedMedium(const std::string& name, const std::string& fullName) {
  return entry("<key>BSD Name</key><string>" + name + "</string><key>FullName</key>" + fullName);
}

TEST(MountedMedia, AreFoundAtAnyDepthBelowTheirDevice) {
  const std::string dump =
      "<array>" +
      device(
          "34603008",
          entry("", entry("", medium("disk4",
                                     medium("disk4s1") +
                                         medium("disk4s2",
                                                entry("", medium("disk5", medium("disk5s1")))))))) +
      "</array>";
  EXPECT_EQ(joined(dump, {{"/dev/disk5s1", "/Volumes/Küste"},
                          {"/dev/disk4s1", "/Volumes/Field Work"},
                          {"/dev/disk1s1", "/"}}),
            "34603008 | Field Work | /Volumes/Field Work\n"
            "34603008 | Küste | /Volumes/Küste\n");
}

TEST(MountedMedia, BelongToTheNearestDeviceAboveThem) {
  const std::string dump =
      device("1", medium("disk4") + device("2", medium("disk5")) + medium("disk6"));
  EXPECT_EQ(joined(dump, {{"/dev/disk4", "/a"}, {"/dev/disk5", "/b"}, {"/dev/disk6", "/c"}}),
            "1 | a | /a\n"
            "1 | c | /c\n"
            "2 | b | /b\n");
}

TEST(MountedMedia, OfADeviceWithoutLocationDoNotGoToTheHubAboveIt) {
  for (const std::string location :
       {"", "<key>locationID</key><string>2</string>", "<key>locationID</key><real>2</real>"}) {
    SCOPED_TRACE(location);
    const std::string dump =
        device("1", entry("<key>IOObjectClass</key><string>IOUSBHostDevice</string>" + location,
                          medium("disk4")));
    EXPECT_EQ(joined(dump, {{"/dev/disk4", "/a"}}), "");
  }
}

TEST(MountedMedia, OutsideOfEveryDeviceBelongToNone) {
  EXPECT_EQ(joined("<array>" + medium("disk4") + device("1", "") + medium("disk5") + "</array>",
                   {{"/dev/disk4", "/a"}, {"/dev/disk5", "/b"}}),
            "");
}

TEST(MountedMedia, ThatAreInTheDumpTwiceBelongToTheFirstPlace) {
  const std::string disk = device("2", medium("disk4"));
  EXPECT_EQ(joined("<array>" + device("1", disk) + disk + device("3", medium("disk4")) + "</array>",
                   {{"/dev/disk4", "/a"}}),
            "2 | a | /a\n");
}

TEST(MountedMedia, MountedInTwoPlacesAreTwoVolumes) {
  EXPECT_EQ(joined(device("1", medium("disk4")), {{"/dev/disk4", "/b"}, {"/dev/disk4", "/a"}}),
            "1 | b | /b\n"
            "1 | a | /a\n");
}

TEST(MountedMedia, HaveTheirNameFromTheRegistryWhereItHasOne) {
  const struct {
    std::string fullName;
    std::string expected;
  } table[] = {
      {"<string>Archive</string>", "Archive"},
      {"<string></string>", "Archive 1"},
      {"<integer>7</integer>", "Archive 1"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.fullName);
    EXPECT_EQ(joined(device("1", namedMedium("disk5s1", row.fullName)),
                     {{"/dev/disk5s1", "/Volumes/Archive 1"}}),
              "1 | " + row.expected + " | /Volumes/Archive 1\n");
  }
}

TEST(MountedMedia, AreOtherwiseNamedAfterTheirMountPoint) {
  const struct {
    std::string mountPoint;
    std::string expected;
  } table[] = {
      {"/Volumes/Data", "Data"},
      {"/Volumes/2024:25", "2024/25"},
      {"/", ""},
      {"relative", "relative"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.mountPoint);
    EXPECT_EQ(joined(device("1", medium("disk4")), {{"/dev/disk4", row.mountPoint}}),
              "1 | " + row.expected + " | " + row.mountPoint + "\n");
  }
}

TEST(MountedMedia, AreRecognisedByTheWholeNameOfTheirDevice) {
  for (const std::string source : {"/dev/disk40", "/dev/disk", "disk4", "/dev/x/disk4", "/dev/", "",
                                   "//server/disk4", "map auto_home"}) {
    SCOPED_TRACE(source);
    EXPECT_EQ(joined(device("1", medium("disk4")), {{source, "/Volumes/Data"}}), "");
  }
}

TEST(MountedMedia, AreRecognisedOnFuseFileSystems) {
  const struct {
    std::string source;
    std::string expected;
  } table[] = {
      {"msdos://disk4/NO%20NAME", "1 | Data | /Volumes/Data\n"},
      {"exfat://disk4", "1 | Data | /Volumes/Data\n"},
      {"ntfs://disk4/Windows", "1 | Data | /Volumes/Data\n"},
      {"ext4://disk4/", "1 | Data | /Volumes/Data\n"},
      {"exfat://disk40/x", ""},
      {"ntfs://disk4s/x", ""},
      {"http://disk4/share", ""},
      {"smb://server/disk4", ""},
      {"ntfs://disk", ""},
      {"ntfs://", ""},
      {"://disk4x/", ""},
      {"exfat:///disk4", ""},
      {"https://disk4/share", ""},
      {"msdos:disk4", ""},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.source);
    EXPECT_EQ(joined(device("1", medium("disk4") + medium("")), {{row.source, "/Volumes/Data"}}),
              row.expected);
  }
}

TEST(MountedMedia, WithAMountPointThatCannotBeHandedOnAreLeftOut) {
  EXPECT_EQ(joined(device("1", medium("disk4") + medium("disk5")),
                   {{"/dev/disk4", "/Volumes/\xff"}, {"/dev/disk5", "/Volumes/ok"}}),
            "1 | ok | /Volumes/ok\n");
}

TEST(MountedMedia, KnowLocationsThatTheRegistryWritesAsNegativeNumbers) {
  EXPECT_EQ(joined("<array>" + device("-15728640", medium("disk4")) +
                       device("4279238656", medium("disk5")) +
                       device("-9223372036854775808", medium("disk6")) + "</array>",
                   {{"/dev/disk4", "/a"}, {"/dev/disk5", "/b"}, {"/dev/disk6", "/c"}}),
            "-9223372032559808512 | c | /c\n"
            "4279238656 | a | /a\n"
            "4279238656 | b | /b\n");
}

TEST(MountedMedia, AreNoneWithoutMediaOrMounts) {
  EXPECT_EQ(joined("<array/>", {{"/dev/disk4", "/a"}}), "");
  EXPECT_EQ(joined("<string>disk4</string>", {{"/dev/disk4", "/a"}}), "");
  EXPECT_EQ(joined(device("1", medium("disk4")), {}), "");
  EXPECT_EQ(joined(device("1", entry("<key>BSD Name</key><integer>4</integer>")),
                   {{"/dev/disk4", "/a"}, {"/dev/4", "/b"}}),
            "");
}

TEST(MountedMedia, AreFoundInTheDeepestDumpThatDecodes) {
  std::string dump = medium("disk4");
  for (int depth = 0; depth < PropertyList::maxNesting / 2 - 2; ++depth) {
    dump = device(std::to_string(depth), dump);
  }
  EXPECT_EQ(joined(dump, {{"/dev/disk4", "/a"}}), "0 | a | /a\n");
}

} // namespace
} // namespace tamberline
