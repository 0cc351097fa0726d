#include "reports/thunderbolt_report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

std::vector<ThunderboltBus> busesOf(const std::string& section) {
  return parseThunderbolt(json::parse(R"({"SPThunderboltDataType": )" + section + "}"));
}

void append(const SharedList<ThunderboltDevice>& devices, const std::string& indent,
            std::string& text) {
  for (const ThunderboltDevice& device : devices) {
    text += indent + device.name + "\n";
    append(device.children, indent + "  ", text);
  }
}

std::string chainText(const std::vector<ThunderboltBus>& buses) {
  std::string text;
  for (const ThunderboltBus& bus : buses) {
    text += "bus " + std::to_string(bus.busNumber) + "\n";
    append(bus.connectedDevices, "  ", text);
  }
  return text;
}

TEST(ThunderboltReport, ReadsThePortOfEachBus) {
  const auto buses = busesOf(R"([{
    "_name": "thunderboltusb4_bus_1",
    "device_name_key": "Harbour Book",
    "switch_uid_key": "0x05AC",
    "receptacle_1_tag": {
      "receptacle_status_key": "receptacle_connected",
      "current_speed_key": "Up to 40 Gb/s",
      "current_link_width_key": "0x2"
    }
  }])");
  ASSERT_EQ(buses.size(), 1U);
  EXPECT_EQ(buses[0].busNumber, 1);
  EXPECT_EQ(buses[0].hostName, "Harbour Book");
  EXPECT_EQ(buses[0].uid, "0x05AC");
  EXPECT_EQ(buses[0].port.status, "receptacle_connected");
  EXPECT_EQ(buses[0].port.speed, "Up to 40 Gb/s");
  EXPECT_EQ(buses[0].port.linkWidth, "0x2");
  EXPECT_TRUE(buses[0].connectedDevices.empty());
}

TEST(ThunderboltReport, ReadsEveryFieldOfADevice) {
  const auto buses = busesOf(R"([{"_items": [{
    "_name": "Harbour Dock",
    "vendor_name_key": "Harbour",
    "mode_key": "usb4_gen3x2",
    "switch_uid_key": "0x00D0",
    "switch_version_key": "33.1",
    "receptacle_upstream_ambiguous_tag": {
      "current_speed_key": "20 Gb/s",
      "current_link_width_key": "0x2"
    }
  }]}])");
  ASSERT_EQ(buses.size(), 1U);
  ASSERT_EQ(buses[0].connectedDevices.size(), 1U);
  const ThunderboltDevice& dock = buses[0].connectedDevices[0];
  EXPECT_EQ(dock.name, "Harbour Dock");
  EXPECT_EQ(dock.vendorName, "Harbour");
  EXPECT_EQ(dock.mode, "usb4_gen3x2");
  EXPECT_EQ(dock.uid, "0x00D0");
  EXPECT_EQ(dock.firmwareVersion, "33.1");
  EXPECT_EQ(dock.upstreamSpeed, "20 Gb/s");
  EXPECT_EQ(dock.upstreamWidth, "0x2");
  EXPECT_TRUE(dock.children.empty());
}

struct BusName {
  const char* name;
  std::int64_t busNumber;
};

TEST(ThunderboltReport, TakesTheBusNumberBehindTheLastUnderscore) {
  constexpr BusName names[] = {
      {R"("thunderbolt_bus_2")", 2},
      {R"("thunderboltusb4_bus_0")", 0},
      {R"("thunderbolt_bus_3_12")", 12},
      {R"("7")", 7},
      {R"("_5")", 5},
      {R"("bus_+4")", 4},
      {R"("bus_-1")", -1},
  };
  for (const auto& [name, busNumber] : names) {
    SCOPED_TRACE(name);
    const auto buses = busesOf(std::string(R"([{}, {}, {"_name": )") + name + "}]");
    EXPECT_EQ(buses.at(2).busNumber, busNumber);
  }
}

TEST(ThunderboltReport, CountsTheBusWhenItsNameHoldsNoNumber) {
  for (const char* name : {R"("Thunderbolt Bus")", R"("bus_2_")", R"("bus_x")", R"("bus_ 2")",
                           R"("bus_2 ")", R"("bus_99999999999999999999")", R"("")", "2", "null"}) {
    SCOPED_TRACE(name);
    const auto buses = busesOf(std::string(R"([{}, {}, {"_name": )") + name + "}]");
    EXPECT_EQ(buses.at(2).busNumber, 3);
  }
}

TEST(ThunderboltReport, GivesAnEntryWithoutAnythingDefaults) {
  const auto buses = busesOf("[{}]");
  ASSERT_EQ(buses.size(), 1U);
  EXPECT_EQ(buses[0].busNumber, 1);
  EXPECT_EQ(buses[0].hostName, "Unknown");
  EXPECT_EQ(buses[0].uid, "");
  EXPECT_TRUE(buses[0].connectedDevices.empty());
}

TEST(ThunderboltReport, GivesABusWithoutReceptacleAnUnconnectedPort) {
  for (const char* entry : {"{}", R"({"receptacle_1_tag": "receptacle_connected"})",
                            R"({"receptacle_1_tag": [{"current_speed_key": "40"}]})",
                            R"({"receptacle_2_tag": {"current_speed_key": "40"}})"}) {
    SCOPED_TRACE(entry);
    const auto buses = busesOf(std::string("[") + entry + "]");
    ASSERT_EQ(buses.size(), 1U);
    EXPECT_EQ(buses[0].port.status, "");
    EXPECT_EQ(buses[0].port.speed, "");
    EXPECT_EQ(buses[0].port.linkWidth, "");
    EXPECT_FALSE(buses[0].port.isConnected());
    EXPECT_EQ(buses[0].port.speedGbps(), 0);
    EXPECT_EQ(buses[0].port.laneCount(), 1);
  }
}

TEST(ThunderboltReport, GivesDefaultsForValuesOfAnotherType) {
  const auto buses = busesOf(R"([{
    "device_name_key": 1, "switch_uid_key": true,
    "receptacle_1_tag": {"receptacle_status_key": 1, "current_speed_key": 40,
                         "current_link_width_key": null},
    "_items": [{"_name": "Dock", "vendor_name_key": 1, "mode_key": [], "switch_uid_key": {},
                "switch_version_key": 1.5, "receptacle_upstream_ambiguous_tag": "20 Gb/s",
                "_items": {"_name": "no array"}}]
  }])");
  ASSERT_EQ(buses.size(), 1U);
  EXPECT_EQ(buses[0].hostName, "Unknown");
  EXPECT_EQ(buses[0].uid, "");
  EXPECT_EQ(buses[0].port.status + buses[0].port.speed + buses[0].port.linkWidth, "");
  ASSERT_EQ(buses[0].connectedDevices.size(), 1U);
  const ThunderboltDevice& dock = buses[0].connectedDevices[0];
  EXPECT_EQ(dock.vendorName + dock.mode + dock.uid + dock.firmwareVersion, "");
  EXPECT_EQ(dock.upstreamSpeed + dock.upstreamWidth, "");
  EXPECT_TRUE(dock.children.empty());
}

TEST(ThunderboltReport, KeepsTheReportsOrder) {
  const auto buses = busesOf(R"([{"_name": "bus_2", "_items": [{"_name": "B"}, {"_name": "A"}]},
                                 {"_name": "bus_0"}, {"_name": "bus_1"}])");
  EXPECT_EQ(chainText(buses), "bus 2\n"
                              "  B\n"
                              "  A\n"
                              "bus 0\n"
                              "bus 1\n");
}

TEST(ThunderboltReport, FollowsAChainOfDevices) {
  const auto buses = busesOf(R"([{"_name": "bus_0", "_items": [
    {"_name": "Dock", "_items": [
      {"_name": "Array", "_items": [{"_name": "Display"}]},
      {"_name": "Box"}]}]}])");
  EXPECT_EQ(chainText(buses), "bus 0\n"
                              "  Dock\n"
                              "    Array\n"
                              "      Display\n"
                              "    Box\n");
}

TEST(ThunderboltReport, SkipsADeviceWithoutNameWithAllBehindIt) {
  const auto buses = busesOf(R"([{"_name": "bus_0", "_items": [
    {"_name": "before"},
    {"vendor_name_key": "nameless", "_items": [{"_name": "behind"}]},
    {"_name": 5, "_items": [{"_name": "behind"}]},
    {"_name": ""},
    {"_name": "after", "_items": [{"mode_key": "nameless"}, {"_name": "kept"}]}]}])");
  EXPECT_EQ(chainText(buses), "bus 0\n"
                              "  before\n"
                              "  \n"
                              "  after\n"
                              "    kept\n");
}

TEST(ThunderboltReport, FindsNothingWithoutAnArrayOfObjects) {
  for (const char* report :
       {"{}", R"({"SPUSBDataType": [{}]})", R"({"SPThunderboltDataType": {}})",
        R"({"SPThunderboltDataType": "x"})", R"({"SPThunderboltDataType": null})",
        R"({"SPThunderboltDataType": []})", R"({"SPThunderboltDataType": [{}, 1]})", "null"}) {
    SCOPED_TRACE(report);
    EXPECT_TRUE(parseThunderbolt(json::parse(report)).empty());
  }
}

TEST(ThunderboltReport, HasNoDevicesWhereTheItemsAreNoArrayOfObjects) {
  for (const char* items : {R"({"_name": "a"})", R"([{"_name": "a"}, "b"])", R"("a")", "null"}) {
    SCOPED_TRACE(items);
    const auto buses = busesOf(std::string(R"([{"_items": )") + items + "}]");
    EXPECT_TRUE(buses.at(0).connectedDevices.empty());
  }
}

TEST(ThunderboltReport, GivesEveryRecordANewIdentity) {
  const std::string section = R"([{"_items": [{"_name": "Dock"}]}])";
  const auto first = busesOf(section);
  const auto second = busesOf(section);
  EXPECT_NE(first[0].id, second[0].id);
  EXPECT_NE(first[0].connectedDevices[0].id, second[0].connectedDevices[0].id);
}

TEST(ReceptacleTag, IsTheObjectUnderItsKey) {
  const json entry = json::parse(R"({"receptacle_1_tag": {"a": "b"}, "receptacle_2_tag": "c"})");
  EXPECT_EQ(receptacleTag(entry, "receptacle_1_tag"), json::parse(R"({"a": "b"})"));
  EXPECT_EQ(receptacleTag(entry, "receptacle_2_tag"), json::object());
  EXPECT_EQ(receptacleTag(entry, "receptacle_3_tag"), json::object());
}

} // namespace
} // namespace tamberline
