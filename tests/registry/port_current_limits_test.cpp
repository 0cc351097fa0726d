#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace tamberline {
namespace {

using Limits = std::map<std::int64_t, std::int64_t>;

constexpr const char* portOne = "<data>AQAAAA==</data>";
constexpr const char* portTwo = "<data>AgAAAA==</data>";
constexpr const char* threeAmperes = "<data>uAsAAA==</data>";
constexpr const char* nineHundredMilliamperes = "<data>hAMAAA==</data>";

Limits limitsIn(const std::string& content) {
  return portCurrentLimitsIn(decodedList(content));
}

std::string entry(const std::string& name, const std::string& number, const std::string& limit) {
  return "<dict><key>IORegistryEntryName</key><string>" + name + "</string><key>port-number</key>" +
         number + "<key>acc_bm3-current-limit</key>" + limit + "</dict>";
}

TEST(PortCurrentLimits, AreThoseOfTheUsbCPorts) {
  EXPECT_EQ(limitsIn("<array>" + entry("port-usb-c", portOne, threeAmperes) +
                     entry("port-usb-c@2", portTwo, nineHundredMilliamperes) + "</array>"),
            (Limits{{1, 3000}, {2, 900}}));
}

TEST(PortCurrentLimits, AreFoundAnywhereInTheDeviceTree) {
  EXPECT_EQ(limitsIn("<dict><key>IORegistryEntryName</key><string>Root</string>"
                     "<key>IORegistryEntryChildren</key><array>"
                     "<dict><key>IORegistryEntryChildren</key><array>" +
                     entry("port-usb-c-1", portOne, threeAmperes) +
                     "</array></dict></array></dict>"),
            (Limits{{1, 3000}}));
}

TEST(PortCurrentLimits, AreNotThoseOfOtherEntries) {
  for (const std::string name :
       {"port-magsafe", "usb-port-usb-c", "Port-USB-C", "port-usb-", "port-usb-a", ""}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(limitsIn(entry(name, portOne, threeAmperes)), Limits{});
  }
  EXPECT_EQ(limitsIn("<dict><key>port-number</key><data>AQ==</data>"
                     "<key>acc_bm3-current-limit</key><data>AQ==</data></dict>"),
            Limits{});
}

TEST(PortCurrentLimits, NeedBothANumberAndALimit) {
  for (const std::string value :
       {"<data></data>", "<integer>3000</integer>", "<string>AQAAAA==</string>", "<true/>"}) {
    SCOPED_TRACE(value);
    EXPECT_EQ(limitsIn(entry("port-usb-c", portOne, value)), Limits{});
    EXPECT_EQ(limitsIn(entry("port-usb-c", value, threeAmperes)), Limits{});
  }
  EXPECT_EQ(limitsIn("<dict><key>IORegistryEntryName</key><string>port-usb-c</string>"
                     "<key>port-number</key><data>AQ==</data></dict>"),
            Limits{});
}

TEST(PortCurrentLimits, OfAPortWithAnEmptyLimitLeaveTheOtherPorts) {
  EXPECT_EQ(limitsIn("<array>" + entry("port-usb-c-1", portOne, "<data></data>") +
                     entry("port-usb-c-2", portTwo, threeAmperes) + "</array>"),
            (Limits{{2, 3000}}));
}

struct Blob {
  const char* element;
  std::optional<std::int64_t> value;
};

TEST(LittleEndianInteger, IsMadeOfAtMostFourBytes) {
  const Blob blobs[] = {
      {"<data>AQ==</data>", 1},
      {"<data>AQI=</data>", 0x0201},
      {"<data>AQID</data>", 0x030201},
      {"<data>AQIDBA==</data>", 0x04030201},
      {"<data>AQIDBAUGBwg=</data>", 0x04030201},
      {"<data>AgAAAP////8=</data>", 2},
      {"<data>/////w==</data>", 0xFFFFFFFF},
      {"<data>AAAAgA==</data>", 0x80000000},
      {"<data>AAAAAA==</data>", 0},
      {"<data></data>", std::nullopt},
      {"<data>*</data>", std::nullopt},
      {"<integer>1</integer>", std::nullopt},
      {"<string>AQ==</string>", std::nullopt},
      {"<true/>", std::nullopt},
      {"<array><data>AQ==</data></array>", std::nullopt},
  };
  for (const auto& [element, value] : blobs) {
    SCOPED_TRACE(element);
    EXPECT_EQ(leInt(decodedList(element).root()), value);
  }
}

TEST(LittleEndianInteger, IsAbsentForNoValue) {
  EXPECT_EQ(leInt(PropertyListValue()), std::nullopt);
}

} // namespace
} // namespace tamberline
