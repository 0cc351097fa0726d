#include "reports/link_limits.h"
#include "reports/thunderbolt_report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

using Limit = std::optional<LinkLimit>;

const Limit oneSlowLane = LinkLimit{.lanes = 1, .gbpsOfLane = 10};
const Limit twoSlowLanes = LinkLimit{.lanes = 2, .gbpsOfLane = 10};
const Limit twoFastLanes = LinkLimit{.lanes = 2, .gbpsOfLane = 20};
const Limit twoLanes = LinkLimit{.lanes = 2};

TEST(LinkLimits, FollowFromTheModeOfADevice) {
  for (const auto& [mode, limit] :
       std::vector<std::pair<std::string, Limit>>{{"thunderbolt_one", oneSlowLane},
                                                  {"thunderbolt_two", twoSlowLanes},
                                                  {"thunderbolt_three", twoFastLanes},
                                                  {"thunderbolt_four", twoFastLanes},
                                                  {"usb4", twoLanes},
                                                  {"usb4_gen2x2", twoLanes},
                                                  {"usb4_gen4x3", twoLanes},
                                                  {"thunderbolt_nine", std::nullopt},
                                                  {"", std::nullopt}}) {
    EXPECT_EQ(linkLimitOfMode(mode), limit) << mode;
  }
}

TEST(LinkLimits, FollowFromTheComputersPort) {
  for (const auto& [bus, limit] : std::vector<std::pair<json, Limit>>{
           {{{"_name", "thunderboltusb4_bus_2"}}, twoFastLanes},
           {{{"_name", "thunderbolt_bus_2"}}, std::nullopt},
           {{{"tamberline_generation", "1"}}, oneSlowLane},
           {{{"tamberline_generation", "2"}}, twoSlowLanes},
           {{{"tamberline_generation", "3"}}, twoFastLanes},
           {{{"tamberline_generation", "4"}}, twoLanes},
           {{{"tamberline_generation", "0"}}, std::nullopt},
           {{{"tamberline_generation", "5"}}, std::nullopt},
           {{{"tamberline_generation", "-9223372036854775808"}}, std::nullopt},
           {{{"tamberline_generation", 3}}, std::nullopt},
           {json::object(), std::nullopt}}) {
    EXPECT_EQ(linkLimitOfHost(bus), limit) << bus;
  }
}

struct LinkCase {
  Limit first;
  Limit second;
  Limit link;
};

TEST(LinkLimits, AreThoseOfTheWeakerEnd) {
  for (const LinkCase& one : std::vector<LinkCase>{{twoFastLanes, twoFastLanes, twoFastLanes},
                                                   {twoFastLanes, twoSlowLanes, twoSlowLanes},
                                                   {twoFastLanes, oneSlowLane, oneSlowLane},
                                                   {twoFastLanes, twoLanes, twoLanes},
                                                   {twoLanes, twoLanes, twoLanes},
                                                   {twoLanes, twoSlowLanes, twoSlowLanes},
                                                   {twoFastLanes, std::nullopt, std::nullopt},
                                                   {std::nullopt, std::nullopt, std::nullopt}}) {
    EXPECT_EQ(linkLimitBetween(one.first, one.second), one.link);
    EXPECT_EQ(linkLimitBetween(one.second, one.first), one.link);
  }
}

TEST(LinkLimits, AreFoundForEachDeviceOfAChain) {
  const auto buses = parseThunderbolt(json::parse(R"({"SPThunderboltDataType": [{
    "_name": "thunderboltusb4_bus_0", "_items": [{
      "_name": "Dock", "mode_key": "usb4_gen3x2", "_items": [{
        "_name": "Old Drive", "mode_key": "thunderbolt_two", "_items": [{
          "_name": "Unknown"}]}]}]}]})"));
  const ThunderboltDevice& dock = *buses.at(0).connectedDevices.begin();
  const ThunderboltDevice& drive = *dock.children.begin();
  EXPECT_EQ(dock.linkLimit, twoLanes);
  EXPECT_EQ(drive.linkLimit, twoSlowLanes);
  EXPECT_EQ(drive.children.begin()->linkLimit, std::nullopt);
}

} // namespace
} // namespace tamberline
