#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

std::vector<HPMPort> portsIn(const std::string& content) {
  return portControllersIn(decodedList(content));
}

std::string port(const std::string& members, int number = 1) {
  return "<dict><key>PortNumber</key><integer>" + std::to_string(number) +
         "</integer><key>PortDescription</key><string>Port</string>" + members + "</dict>";
}

HPMPort portWith(const std::string& members) {
  return portsIn(port(members)).at(0);
}

std::string children(const std::string& entries) {
  return "<key>IORegistryEntryChildren</key><array>" + entries + "</array>";
}

std::string transports(const std::string& names) {
  return "<key>TransportsActive</key><array>" + names + "</array>";
}

TEST(PortControllers, ReadEveryFieldOfAPort) {
  EXPECT_EQ(portsIn(R"(
    <array><dict>
      <key>PortNumber</key><integer>2</integer>
      <key>PortDescription</key><string>Port-USB-C@2</string>
      <key>PortTypeDescription</key><string>USB-C</string>
      <key>ConnectionActive</key><true/>
      <key>TransportsActive</key>
      <array><string>CC</string><string>USB3</string><string>DisplayPort</string></array>
      <key>ActiveCable</key><true/>
      <key>OpticalCable</key><true/>
      <key>IOAccessoryID</key><integer>36</integer>
    </dict></array>)"),
            (std::vector{HPMPort{.portNumber = 2,
                                 .isMagSafe = false,
                                 .connectionActive = true,
                                 .hasData = true,
                                 .hasVideo = true,
                                 .activeCable = true,
                                 .opticalCable = true,
                                 .accessoryID = 36}}));
}

TEST(PortControllers, GiveAPortWithoutAnythingDefaults) {
  EXPECT_EQ(portWith(""), HPMPort{.portNumber = 1});
}

TEST(PortControllers, GiveAPortWithValuesOfAnotherTypeDefaults) {
  EXPECT_EQ(portWith("<key>PortTypeDescription</key><integer>1</integer>"
                     "<key>ConnectionActive</key><integer>1</integer>"
                     "<key>TransportsActive</key><string>USB3</string>"
                     "<key>DisplayPortPinAssignment</key><integer>1</integer>"
                     "<key>ActiveCable</key><string>true</string>"
                     "<key>OpticalCable</key><integer>1</integer>"
                     "<key>IOAccessoryID</key><true/>"),
            HPMPort{.portNumber = 1});
}

TEST(PortControllers, TreatFalseAsFalse) {
  EXPECT_EQ(portWith("<key>ConnectionActive</key><false/><key>ActiveCable</key><false/>"
                     "<key>OpticalCable</key><false/><key>DisplayPortPinAssignment</key><false/>"),
            HPMPort{.portNumber = 1});
}

TEST(PortControllers, ReadEachFlagFromItsOwnKey) {
  EXPECT_EQ(portWith("<key>ConnectionActive</key><true/>"),
            (HPMPort{.portNumber = 1, .connectionActive = true}));
  EXPECT_EQ(portWith("<key>ActiveCable</key><true/>"),
            (HPMPort{.portNumber = 1, .activeCable = true}));
  EXPECT_EQ(portWith("<key>OpticalCable</key><true/>"),
            (HPMPort{.portNumber = 1, .opticalCable = true}));
}

TEST(PortControllers, RecogniseMagSafeByItsDescription) {
  const auto isMagSafe = [](const std::string& description) {
    return portWith("<key>PortTypeDescription</key><string>" + description + "</string>").isMagSafe;
  };
  EXPECT_TRUE(isMagSafe("MagSafe 3"));
  EXPECT_TRUE(isMagSafe("Port-MagSafe"));
  EXPECT_FALSE(isMagSafe("USB-C"));
  EXPECT_FALSE(isMagSafe("magsafe"));
  EXPECT_FALSE(isMagSafe(""));
}

struct Transport {
  const char* name;
  bool hasData;
  bool hasVideo;
};

TEST(PortControllers, KnowWhichTransportsCarryDataOrVideo) {
  constexpr Transport names[] = {
      {"USB2", true, false},   {"USB3", true, false},        {"USB4", true, false},
      {"CIO", true, false},    {"DisplayPort", false, true}, {"CC", false, false},
      {"usb2", false, false},  {"USB", false, false},        {"USB31", false, false},
      {"Audio", false, false}, {"", false, false},
  };
  for (const auto& [name, hasData, hasVideo] : names) {
    SCOPED_TRACE(name);
    const HPMPort found = portWith(transports("<string>" + std::string(name) + "</string>"));
    EXPECT_EQ(found.hasData, hasData);
    EXPECT_EQ(found.hasVideo, hasVideo);
  }
}

TEST(PortControllers, ReadAllTransportsAndSkipOtherValues) {
  const HPMPort found = portWith(transports("<integer>2</integer><string>CC</string><true/>"
                                            "<string>DisplayPort</string><string>USB2</string>"));
  EXPECT_TRUE(found.hasData);
  EXPECT_TRUE(found.hasVideo);
}

TEST(PortControllers, ReadOnlyTransportsThatAreActive) {
  EXPECT_FALSE(portWith("<key>TransportsSupported</key><array><string>USB3</string></array>"
                        "<key>TransportsProvisioned</key><array><string>CIO</string></array>")
                   .hasData);
}

TEST(PortControllers, TreatAnAssignedDisplayPortPinAsVideo) {
  EXPECT_TRUE(portWith("<key>DisplayPortPinAssignment</key><true/>").hasVideo);
  EXPECT_FALSE(portWith("<key>DisplayPortPinAssignment</key><false/>").hasVideo);
  EXPECT_FALSE(portWith("<key>DisplayPortPinAssignment</key><integer>3</integer>").hasVideo);
}

TEST(PortControllers, TreatAConnectedPortWithoutAccessoryAsACharger) {
  const HPMPort found = portWith("<key>ConnectionActive</key><true/>");
  EXPECT_EQ(found.accessoryID, -1);
  EXPECT_TRUE(found.isCharger());
}

TEST(PortControllers, KeepAnAccessoryOfZero) {
  EXPECT_EQ(portWith("<key>IOAccessoryID</key><integer>0</integer>").accessoryID, 0);
}

std::string numbersIn(const std::string& content) {
  std::string numbers;
  for (const HPMPort& found : portsIn(content)) {
    numbers += std::to_string(found.portNumber) + " ";
  }
  return numbers;
}

TEST(PortControllers, ComeInWalkOrder) {
  EXPECT_EQ(numbersIn("<array>" + port(children(port("", 3) + port("", 2)), 4) + port("", 1) +
                      "</array>"),
            "4 3 2 1 ");
}

TEST(PortControllers, AreNoPortsWithoutNumberAndDescriptionButAreWalkedThrough) {
  for (const std::string members : {
           "<key>PortNumber</key><integer>9</integer>",
           "<key>PortDescription</key><string>Port</string>",
           "<key>PortNumber</key><string>9</string>"
           "<key>PortDescription</key><string>Port</string>",
           "<key>PortNumber</key><true/><key>PortDescription</key><string>Port</string>",
           "<key>PortNumber</key><integer>9</integer><key>PortDescription</key><data>AA==</data>",
           "<key>PortNumber</key><integer>99999999999999999999</integer>"
           "<key>PortDescription</key><string>Port</string>",
       }) {
    SCOPED_TRACE(members);
    EXPECT_EQ(numbersIn("<array><dict>" + members + children(port("", 1)) + "</dict></array>"),
              "1 ");
  }
}

TEST(PortControllers, MayHaveAnEmptyDescription) {
  EXPECT_EQ(numbersIn("<dict><key>PortNumber</key><integer>0</integer>"
                      "<key>PortDescription</key><string></string></dict>"),
            "0 ");
}

TEST(PortControllers, AreNoneInADumpWithoutEntries) {
  EXPECT_TRUE(portsIn("<array/>").empty());
  EXPECT_TRUE(portsIn("<string>PortNumber</string>").empty());
}

} // namespace
} // namespace tamberline
