#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

using Ports = std::vector<FedPortState>;

FedDetails detailsIn(const std::string& content) {
  return fedDetailsIn(decodedList(content));
}

/// A dump of one entry with these elements.
std::string dump(const std::string& elements) {
  return "<array><dict><key>FedDetails</key><array>" + elements + "</array></dict></array>";
}

FedPortState portWith(const std::string& members) {
  return detailsIn(dump("<dict>" + members + "</dict>")).ports.at(0);
}

TEST(BatteryControllerPorts, ReadEveryFieldAndTheBestAdapter) {
  const FedDetails details = detailsIn(R"(
    <array><dict>
      <key>BestAdapterIndex</key><integer>3</integer>
      <key>FedDetails</key>
      <array>
        <dict>
          <key>FedExternalConnected</key><integer>1</integer>
          <key>FedDualRolePower</key><integer>1</integer>
          <key>FedVendorID</key><integer>1452</integer>
          <key>FedProductID</key><integer>28936</integer>
          <key>FedPortPowerRole</key><integer>2</integer>
        </dict>
        <dict>
          <key>FedExternalConnected</key><integer>0</integer>
          <key>FedDualRolePower</key><integer>0</integer>
          <key>FedPortPowerRole</key><integer>0</integer>
        </dict>
      </array>
    </dict></array>)");
  EXPECT_EQ(details.ports, (Ports{{.index = 0,
                                   .isConnected = true,
                                   .isDualRole = true,
                                   .vendorID = 1452,
                                   .productID = 28936,
                                   .powerRole = 2},
                                  {.index = 1, .powerRole = 0}}));
  EXPECT_EQ(details.bestAdapterIndex, 3);
}

TEST(BatteryControllerPorts, HavePowerRoleOneWhenThereIsNone) {
  EXPECT_EQ(portWith(""), FedPortState{.powerRole = 1});
}

TEST(BatteryControllerPorts, AreConnectedOnlyByTheIntegerOne) {
  EXPECT_TRUE(portWith("<key>FedExternalConnected</key><integer>1</integer>").isConnected);
  EXPECT_TRUE(portWith("<key>FedDualRolePower</key><integer>1</integer>").isDualRole);
  for (const std::string value :
       {"<true/>", "<integer>0</integer>", "<integer>2</integer>", "<integer>-1</integer>",
        "<string>1</string>", "<real>1</real>"}) {
    SCOPED_TRACE(value);
    EXPECT_FALSE(portWith("<key>FedExternalConnected</key>" + value).isConnected);
    EXPECT_FALSE(portWith("<key>FedDualRolePower</key>" + value).isDualRole);
  }
}

TEST(BatteryControllerPorts, ReadEachFlagFromItsOwnKey) {
  EXPECT_EQ(portWith("<key>FedExternalConnected</key><integer>1</integer>"),
            FedPortState{.isConnected = true});
  EXPECT_EQ(portWith("<key>FedDualRolePower</key><integer>1</integer>"),
            FedPortState{.isDualRole = true});
}

TEST(BatteryControllerPorts, GiveValuesOfAnotherTypeDefaults) {
  EXPECT_EQ(portWith("<key>FedVendorID</key><string>1452</string>"
                     "<key>FedProductID</key><true/>"
                     "<key>FedPortPowerRole</key><string>2</string>"),
            FedPortState{});
}

TEST(BatteryControllerPorts, CountElementsThatAreNotDictionaries) {
  EXPECT_EQ(detailsIn(dump("<string>x</string><dict/><array><dict/></array><dict/>")).ports,
            (Ports{{.index = 1}, {.index = 3}}));
}

TEST(BatteryControllerPorts, ComeFromTheFirstEntryThatHasThem) {
  const FedDetails details = detailsIn(R"(
    <array>
      <string>no entry</string>
      <dict><key>BestAdapterIndex</key><integer>1</integer></dict>
      <dict>
        <key>BestAdapterIndex</key><integer>2</integer>
        <key>FedDetails</key><dict/>
      </dict>
      <dict>
        <key>BestAdapterIndex</key><integer>3</integer>
        <key>FedDetails</key><array><dict/></array>
      </dict>
      <dict>
        <key>BestAdapterIndex</key><integer>4</integer>
        <key>FedDetails</key><array><dict/><dict/></array>
      </dict>
    </array>)");
  EXPECT_EQ(details.ports, (Ports{{.index = 0}}));
  EXPECT_EQ(details.bestAdapterIndex, 3);
}

TEST(BatteryControllerPorts, MayBeNoneInTheFirstEntryThatHasAView) {
  const FedDetails details =
      detailsIn("<array><dict><key>FedDetails</key><array/></dict>"
                "<dict><key>FedDetails</key><array><dict/></array></dict></array>");
  EXPECT_TRUE(details.ports.empty());
}

TEST(BatteryControllerPorts, HaveBestAdapterZeroWhenThereIsNone) {
  EXPECT_EQ(detailsIn(dump("<dict/>")).bestAdapterIndex, 0);
  EXPECT_EQ(detailsIn("<array><dict><key>FedDetails</key><array/>"
                      "<key>BestAdapterIndex</key><true/></dict></array>")
                .bestAdapterIndex,
            0);
}

TEST(BatteryControllerPorts, AreReadFromTheTopLevelOnly) {
  const FedDetails details = detailsIn("<array><dict><key>IORegistryEntryChildren</key>" +
                                       dump("<dict/>") + "</dict></array>");
  EXPECT_TRUE(details.ports.empty());
  EXPECT_EQ(details.bestAdapterIndex, 0);
}

TEST(BatteryControllerPorts, AreNoneInADumpWithoutEntries) {
  for (const std::string content : {"<array/>", "<dict/>", "<string>x</string>"}) {
    SCOPED_TRACE(content);
    const FedDetails details = detailsIn(content);
    EXPECT_TRUE(details.ports.empty());
    EXPECT_EQ(details.bestAdapterIndex, 0);
  }
}

} // namespace
} // namespace tamberline
