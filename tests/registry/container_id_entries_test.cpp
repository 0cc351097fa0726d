#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tamberline {
namespace {

ContainerIDs identifiersIn(const std::string& content) {
  return containerIDsIn(decodedList(content));
}

std::string entry(const std::string& locationID, const std::string& containerID,
                  const std::string& children = "") {
  return "<dict><key>locationID</key><integer>" + locationID +
         "</integer><key>kUSBContainerID</key><string>" + containerID +
         "</string><key>IORegistryEntryChildren</key><array>" + children + "</array></dict>";
}

TEST(ContainerIdEntries, GiveEachLocationItsContainer) {
  const ContainerIDs identifiers =
      identifiersIn("<array>" + entry("17825792", "A") + entry("34603008", "B") + "</array>");
  EXPECT_EQ(identifiers.find(17825792), "A");
  EXPECT_EQ(identifiers.find(34603008), "B");
  EXPECT_EQ(identifiers.size(), 2U);
}

TEST(ContainerIdEntries, AreFoundBehindOtherEntries) {
  const ContainerIDs identifiers = identifiersIn(entry(
      "1", "A",
      "<dict><key>IORegistryEntryChildren</key><array>" + entry("2", "B") + "</array></dict>"));
  EXPECT_EQ(identifiers.find(1), "A");
  EXPECT_EQ(identifiers.find(2), "B");
}

TEST(ContainerIdEntries, OfOneLocationTheFirstInWalkOrderWins) {
  const ContainerIDs identifiers =
      identifiersIn("<array>" + entry("1", "first", entry("1", "second") + entry("2", "third")) +
                    entry("2", "fourth") + "</array>");
  EXPECT_EQ(identifiers.find(1), "first");
  EXPECT_EQ(identifiers.find(2), "third");
  EXPECT_EQ(identifiers.size(), 2U);
}

TEST(ContainerIdEntries, FindHighLocationsInEitherSpelling) {
  const ContainerIDs identifiers =
      identifiersIn("<array>" + entry("-15728640", "A") + entry("2148532224", "B") + "</array>");
  EXPECT_EQ(identifiers.find(0xFF100000), "A");
  EXPECT_EQ(identifiers.find(0x80100000), "B");
}

TEST(ContainerIdEntries, NeedALocationAndAContainer) {
  for (const std::string members : {
           "<key>locationID</key><integer>1</integer>",
           "<key>kUSBContainerID</key><string>A</string>",
           "<key>locationID</key><string>1</string><key>kUSBContainerID</key><string>A</string>",
           "<key>locationID</key><true/><key>kUSBContainerID</key><string>A</string>",
           "<key>locationID</key><real>1</real><key>kUSBContainerID</key><string>A</string>",
           "<key>locationID</key><integer>1</integer><key>kUSBContainerID</key><data>AQ==</data>",
           "<key>locationID</key><integer>1</integer><key>kUSBContainerID</key>"
           "<integer>1</integer>",
       }) {
    SCOPED_TRACE(members);
    EXPECT_EQ(identifiersIn("<dict>" + members + "</dict>").size(), 0U);
  }
}

TEST(ContainerIdEntries, WithoutAContainerLeaveTheLocationToLaterOnes) {
  const ContainerIDs identifiers =
      identifiersIn("<array><dict><key>locationID</key><integer>1</integer></dict>" +
                    entry("1", "later") + "</array>");
  EXPECT_EQ(identifiers.find(1), "later");
}

TEST(ContainerIdEntries, AreNoneInAnEmptyDump) {
  EXPECT_EQ(identifiersIn("<array/>").size(), 0U);
  EXPECT_EQ(identifiersIn("<array/>").find(0), std::nullopt);
}

} // namespace
} // namespace tamberline
