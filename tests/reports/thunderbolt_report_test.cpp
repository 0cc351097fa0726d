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

TEST(ThunderboltReport, TakesTheBusNumberAfterTheLastUnderscore) {
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

TEST(ThunderboltReport, KnowsAllSocketsOfAController) {
  const auto buses = busesOf(R"([{
    "receptacle_1_tag": {"receptacle_id_key": "3", "current_speed_key": "Up to 40 Gb/s x1",
                         "receptacle_status_key": "receptacle_no_devices_connected"},
    "receptacle_2_tag": {"receptacle_id_key": "4", "current_speed_key": "Up to 10 Gb/s x2",
                         "receptacle_status_key": "receptacle_connected"},
    "receptacle_3_tag": {"receptacle_id_key": 7}, "receptacle_4_tag": "no object"
  }])");
  ASSERT_EQ(buses.at(0).receptacles.size(), 3U);
  const std::vector<ThunderboltReceptacle>& receptacles = buses[0].receptacles;
  EXPECT_EQ(receptacles[0].number, 3);
  EXPECT_EQ(receptacles[1].number, 4);
  EXPECT_EQ(receptacles[2].number, std::nullopt);
  EXPECT_EQ(receptacles[1].port.speed, "Up to 10 Gb/s x2");
  EXPECT_EQ(receptacles[0].port.link, std::nullopt) << "it says what the socket could do";
  EXPECT_EQ(receptacles[1].port.link, (TrueLink{20, 20, 2, 2}));
  EXPECT_FALSE(buses[0].port.isConnected()) << "the port is the first socket";
  EXPECT_EQ(buses[0].port.link, std::nullopt);
}

TEST(ThunderboltReport, ReadsTheActualLinkOfADevice) {
  const auto buses = busesOf(R"([{"_items": [
    {"_name": "Dock", "receptacle_upstream_ambiguous_tag":
       {"current_speed_key": "Up to 40 Gb/s x1", "current_link_width_key": "0x2"}, "_items": [
      {"_name": "Slate", "tamberline_link_transmit_gbps": "120",
       "tamberline_link_receive_gbps": "40"},
      {"_name": "Bare"}]}]}])");
  const ThunderboltDevice& dock = buses.at(0).connectedDevices[0];
  EXPECT_EQ(dock.link, (TrueLink{40, 40, 2, 2}));
  EXPECT_EQ(dock.children[0].link, (TrueLink{.transmitGbps = 120, .receiveGbps = 40}));
  EXPECT_EQ(dock.children[1].link, std::nullopt);
}

/// The link of the bus's port, and of each socket.
std::string socketLinks(const std::string& members) {
  const ThunderboltBus bus = busesOf("[{" + members + "}]").at(0);
  const auto gbps = [](const ThunderboltPort& port) {
    return port.link ? std::to_string(static_cast<int>(*port.link->transmitGbps)) : "none";
  };
  std::string text = "port " + gbps(bus.port);
  for (const ThunderboltReceptacle& receptacle : bus.receptacles) {
    text += ", " + gbps(receptacle.port);
  }
  return text;
}

TEST(ThunderboltReport, TakesTheLinkOfAPortFromItsOnlyDevice) {
  const std::string connected = R"({"receptacle_status_key": "receptacle_connected",
                                    "current_speed_key": "Up to 40 Gb/s"})";
  const std::string empty = R"({"receptacle_status_key": "receptacle_no_devices_connected",
                                "current_speed_key": "Up to 40 Gb/s"})";
  const std::string slow = R"({"_name": "Disk", "receptacle_upstream_ambiguous_tag":
                               {"current_speed_key": "20 Gb/s", "current_link_width_key": "0x1"}})";
  const struct {
    const char* description;
    std::string members;
    const char* links;
  } rows[] = {
      {"one of each", "\"receptacle_1_tag\": " + connected + ", \"_items\": [" + slow + "]",
       "port 20, 20"},
      {"in the second socket",
       "\"receptacle_1_tag\": " + empty + ", \"receptacle_2_tag\": " + connected +
           ", \"_items\": [" + slow + "]",
       "port none, none, 20"},
      {"two sockets in use",
       "\"receptacle_1_tag\": " + connected + ", \"receptacle_2_tag\": " + connected +
           ", \"_items\": [" + slow + "]",
       "port 40, 40, 40"},
      {"two devices",
       "\"receptacle_1_tag\": " + connected + ", \"_items\": [" + slow + ", " + slow + "]",
       "port 40, 40"},
      {"a device that says nothing",
       "\"receptacle_1_tag\": " + connected + R"(, "_items": [{"_name": "Mac"}])", "port 40, 40"},
      {"nothing connected", "\"receptacle_1_tag\": " + empty, "port none, none"},
      {"no socket", "\"_items\": [" + slow + "]", "port none"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(socketLinks(row.members), row.links);
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

TEST(ThunderboltReport, SkipsADeviceWithoutANameAndEverythingBehindIt) {
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
