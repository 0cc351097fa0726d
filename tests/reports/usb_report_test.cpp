#include "reports/usb_report.h"
#include "support/bus_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

std::vector<USBBus> busesOf(const std::string& section, const ContainerIDs& containerIDs = {}) {
  return parseUSB(json::parse(R"({"SPUSBDataType": )" + section + "}"), containerIDs);
}

/// The one device of a bus that contains only this entry.
USBDevice deviceOf(const std::string& entry, const ContainerIDs& containerIDs = {}) {
  return parseUSBDevices(json::array({json::parse(entry)}), containerIDs).at(0);
}

TEST(UsbReport, ReadsEachBus) {
  const auto buses = busesOf(R"([
    {"_name": "USB31Bus", "host_controller": "AppleT6020USBXHCI"},
    {"_name": "USB20Bus", "host_controller": "AppleUSBXHCIPCI"}])");
  ASSERT_EQ(buses.size(), 2U);
  EXPECT_EQ(buses[0].rawName, "USB31Bus");
  EXPECT_EQ(buses[0].hostController, "AppleT6020USBXHCI");
  EXPECT_TRUE(buses[0].devices.empty());
  EXPECT_EQ(buses[1].rawName, "USB20Bus");
  EXPECT_EQ(buses[1].hostController, "AppleUSBXHCIPCI");
}

TEST(UsbReport, ReadsTheExtraCurrentOfADevice) {
  const USBDevice phone = deviceOf(
      R"({"_name": "Phone", "bus_power_used": "500", "extra_current_used": "1600",
          "sleep_current": "2100"})");
  EXPECT_EQ(phone.busPowerUsed, 500);
  EXPECT_EQ(phone.extraCurrentMa, 1600);
  EXPECT_EQ(deviceOf(R"({"_name": "x", "extra_current_used": 1600})").extraCurrentMa, std::nullopt);
}

TEST(UsbReport, ReadsTheFlagsOfReportsMadeHere) {
  const USBDevice hub = deviceOf(
      R"({"_name": "Hub", "tamberline_is_built_in": "TRUE", "tamberline_is_tunneled": "FALSE"})");
  EXPECT_EQ(hub.isBuiltIn, true);
  EXPECT_EQ(hub.isTunneled, false);
  const USBDevice other = deviceOf(
      R"({"_name": "Hub", "tamberline_is_built_in": true, "tamberline_is_tunneled": "Yes"})");
  EXPECT_EQ(other.isBuiltIn, std::nullopt);
  EXPECT_EQ(other.isTunneled, std::nullopt);
}

TEST(UsbReport, GivesABusWithoutAnythingDefaults) {
  for (const char* entry : {"{}", R"({"_name": 1, "host_controller": [], "_items": "x"})"}) {
    SCOPED_TRACE(entry);
    const auto buses = busesOf(std::string("[") + entry + "]");
    ASSERT_EQ(buses.size(), 1U);
    EXPECT_EQ(buses[0].rawName, "USBBus");
    EXPECT_EQ(buses[0].hostController, "");
    EXPECT_TRUE(buses[0].devices.empty());
  }
}

TEST(UsbReport, ReadsEveryFieldOfADevice) {
  ContainerIDs containerIDs;
  containerIDs.add(0x02100000, "C-1");
  const USBDevice device = deviceOf(R"json({
    "_name": "Quarry SSD", "vendor_id": "0x1234  (Quarry Ltd.)", "product_id": "0x5678",
    "device_speed": "super_speed_plus", "manufacturer": "Quarry", "serial_num": "S1",
    "bus_power": "900", "bus_power_used": "896", "location_id": "0x02100000 / 3"
})json",
                                    containerIDs);
  EXPECT_EQ(device.name, "Quarry SSD");
  EXPECT_EQ(device.vendorID, "0x1234  (Quarry Ltd.)");
  EXPECT_EQ(device.productID, "0x5678");
  EXPECT_EQ(device.speed, "super_speed_plus");
  EXPECT_EQ(device.manufacturer, "Quarry");
  EXPECT_EQ(device.serialNumber, "S1");
  EXPECT_EQ(device.busPower, 900);
  EXPECT_EQ(device.busPowerUsed, 896);
  EXPECT_EQ(device.physicalPort, 2);
  EXPECT_EQ(device.containerID, "C-1");
  EXPECT_TRUE(device.volumes.empty());
  EXPECT_TRUE(device.children.empty());
}

void expectNothingButAName(const USBDevice& device) {
  EXPECT_EQ(device.name, "Mouse ");
  EXPECT_EQ(device.vendorID + device.productID + device.speed + device.manufacturer, "");
  EXPECT_EQ(device.serialNumber, std::nullopt);
  EXPECT_EQ(device.busPower, std::nullopt);
  EXPECT_EQ(device.busPowerUsed, std::nullopt);
  EXPECT_EQ(device.physicalPort, std::nullopt);
  EXPECT_EQ(device.containerID, std::nullopt);
  EXPECT_TRUE(device.volumes.empty());
  EXPECT_TRUE(device.children.empty());
}

TEST(UsbReport, GivesADeviceWithNothingButANameDefaults) {
  expectNothingButAName(deviceOf(R"({"_name": "Mouse "})"));
}

TEST(UsbReport, TreatsValuesOfAnotherTypeAsAbsent) {
  expectNothingButAName(deviceOf(R"({
    "_name": "Mouse ", "vendor_id": 1, "product_id": 2, "device_speed": 3, "manufacturer": 4,
    "serial_num": 5, "bus_power": 500, "bus_power_used": 100, "location_id": 17825792,
    "Media": {"volumes": []}, "_items": {"_name": "x"}})"));
}

struct Current {
  const char* text;
  std::optional<std::int64_t> milliamperes;
};

TEST(UsbReport, ReadsCurrentsThatAreDecimalIntegers) {
  const Current currents[] = {
      {"500", 500},
      {"0", 0},
      {"-1", -1},
      {"n/a", std::nullopt},
      {"", std::nullopt},
      {"500 mA", std::nullopt},
      {"4.5", std::nullopt},
      {" 500", std::nullopt},
      {"9223372036854775808", std::nullopt},
  };
  for (const auto& [text, milliamperes] : currents) {
    SCOPED_TRACE(text);
    const USBDevice device =
        deviceOf(json{{"_name", "x"}, {"bus_power", text}, {"bus_power_used", text}}.dump());
    EXPECT_EQ(device.busPower, milliamperes);
    EXPECT_EQ(device.busPowerUsed, milliamperes);
  }
}

TEST(UsbReport, KeepsThePowerAPortOffersApartFromThePowerUsed) {
  const USBDevice device =
      deviceOf(R"({"_name": "x", "bus_power": "500", "bus_power_used": "98"})");
  EXPECT_EQ(device.busPower, 500);
  EXPECT_EQ(device.busPowerUsed, 98);
}

struct PortLocation {
  const char* text;
  std::optional<std::int64_t> physicalPort;
};

TEST(UsbReport, TakesThePhysicalPortFromTheLocation) {
  const PortLocation locations[] = {
      {"0x01100000 / 1", 1},
      {"0x02200000", 2},
      {"0xFF100000 / 5", 255},
      {"0x1", 0},
      {"0x80000000", 128},
      {"0x102200000", 2},
      {"no digits here", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& [text, physicalPort] : locations) {
    SCOPED_TRACE(text);
    EXPECT_EQ(deviceOf(json{{"_name", "x"}, {"location_id", text}}.dump()).physicalPort,
              physicalPort);
  }
}

TEST(UsbReport, TakesTheContainerFromTheSameScansRegistry) {
  ContainerIDs containerIDs;
  containerIDs.add(0x01100000, "C-1");
  containerIDs.add(-15728640, "written as a negative number");
  const auto containerAt = [&](const std::string& location) {
    return deviceOf(json{{"_name", "x"}, {"location_id", location}}.dump(), containerIDs)
        .containerID;
  };
  EXPECT_EQ(containerAt("0x01100000 / 1"), "C-1");
  EXPECT_EQ(containerAt("0xFF100000 / 1"), "written as a negative number");
  EXPECT_EQ(containerAt("0x01200000"), std::nullopt);
  EXPECT_EQ(containerAt("no location"), std::nullopt);
}

TEST(UsbReport, TakesTheAbilityFromTheSameScansRegistry) {
  USBAbilities abilities;
  abilities.add(0x01110000, {.limitGbps = 0.48});
  const auto buses = parseUSB(json::parse(R"({"SPUSBDataType": [{"_items": [
    {"_name": "hub", "location_id": "0x01100000", "_items": [
      {"_name": "disk", "location_id": "0x01110000"}, {"_name": "lost"}]}]}]})"),
                              ContainerIDs(), abilities);
  const USBDevice& hub = buses.at(0).devices[0];
  EXPECT_EQ(hub.locationID, 0x01100000);
  EXPECT_EQ(hub.ability, USBAbility{});
  EXPECT_EQ(hub.children[0].locationID, 0x01110000);
  EXPECT_EQ(hub.children[0].ability, USBAbility{.limitGbps = 0.48});
  EXPECT_EQ(hub.children[1].locationID, std::nullopt);
}

TEST(UsbReport, HasNoContainerForADeviceWithoutLocation) {
  ContainerIDs containerIDs;
  containerIDs.add(0, "C-0");
  EXPECT_EQ(deviceOf(R"({"_name": "x"})", containerIDs).containerID, std::nullopt);
}

TEST(UsbReport, GivesDevicesBehindAHubTheirContainersToo) {
  ContainerIDs containerIDs;
  containerIDs.add(0x01110000, "C-1");
  const auto buses = busesOf(R"([{"_items": [{"_name": "hub", "_items": [
    {"_name": "disk", "location_id": "0x01110000"}]}]}])",
                             containerIDs);
  EXPECT_EQ(buses.at(0).devices[0].children[0].containerID, "C-1");
}

TEST(UsbReport, ReadsHubsBehindHubsInReportOrder) {
  const auto buses = busesOf(R"([
    {"_name": "USB31Bus", "_items": [
      {"_name": "hub", "device_speed": "super_speed", "_items": [
        {"_name": "inner hub", "_items": [{"_name": "disk"}]},
        {"_name": "camera"}]},
      {"_name": "keyboard", "device_speed": "low_speed"}]},
    {"_name": "USB20Bus"}])");
  EXPECT_EQ(busText(buses), "USB31Bus\n"
                            "  hub super_speed\n"
                            "    inner hub\n"
                            "      disk\n"
                            "    camera\n"
                            "  keyboard low_speed\n"
                            "USB20Bus\n");
}

TEST(UsbReport, SkipsADeviceWithoutANameAndEverythingBehindIt) {
  const auto buses = busesOf(R"([{"_name": "USB31Bus", "_items": [
    {"_name": "before"},
    {"vendor_id": "nameless", "_items": [{"_name": "behind"}]},
    {"_name": null, "_items": [{"_name": "behind"}]},
    {"_name": "after"}]}])");
  EXPECT_EQ(busText(buses), "USB31Bus\n"
                            "  before\n"
                            "  after\n");
}

TEST(UsbReport, FindsNothingWithoutAnArrayOfObjects) {
  for (const char* report : {"{}", R"({"SPThunderboltDataType": [{}]})", R"({"SPUSBDataType": {}})",
                             R"({"SPUSBDataType": "x"})", R"({"SPUSBDataType": []})",
                             R"({"SPUSBDataType": [{}, null]})", "null"}) {
    SCOPED_TRACE(report);
    EXPECT_TRUE(parseUSB(json::parse(report), {}).empty());
  }
}

TEST(UsbReport, HasNoDevicesWhereTheItemsHoldAnythingBesideObjects) {
  EXPECT_EQ(busText(busesOf(R"([{"_name": "USB31Bus", "_items": [{"_name": "a"}, "b"]}])")),
            "USB31Bus\n");
}

TEST(UsbReport, GivesEveryRecordANewIdentity) {
  const std::string section = R"([{"_items": [{"_name": "disk"}]}])";
  const auto first = busesOf(section);
  const auto second = busesOf(section);
  EXPECT_NE(first[0].id, second[0].id);
  EXPECT_NE(first[0].devices[0].id, second[0].devices[0].id);
}

using Volumes = std::vector<USBVolume>;

Volumes volumesOf(const std::string& media) {
  return deviceOf(R"({"_name": "disk", "Media": )" + media + "}").volumes;
}

TEST(UsbReport, ListsTheVolumesOfAllMediaInOrder) {
  EXPECT_EQ(volumesOf(R"([
    {"volumes": [{"_name": "B", "mount_point": "/Volumes/B"},
                 {"_name": "A", "mount_point": "/Volumes/A"}]},
    {"volumes": [{"_name": "C", "mount_point": "/Volumes/C"}]}])"),
            (Volumes{{"B", "/Volumes/B"}, {"A", "/Volumes/A"}, {"C", "/Volumes/C"}}));
}

TEST(UsbReport, ListsOnlyMountedVolumes) {
  EXPECT_EQ(volumesOf(R"([
    {"_name": "mounted", "volumes": [{"_name": "Data", "mount_point": "/Volumes/Data"}]},
    {"_name": "unmounted", "volumes": [{"_name": "EFI"},
                                       {"_name": "Empty", "mount_point": ""},
                                       {"_name": "Number", "mount_point": 1}]}])"),
            (Volumes{{"Data", "/Volumes/Data"}}));
}

TEST(UsbReport, GivesAVolumeWithoutNameAnEmptyOne) {
  EXPECT_EQ(volumesOf(R"([{"volumes": [{"mount_point": "/Volumes/X"},
                                       {"_name": 1, "mount_point": "/Volumes/Y"}]}])"),
            (Volumes{{"", "/Volumes/X"}, {"", "/Volumes/Y"}}));
}

TEST(UsbReport, FindsNoVolumesWhereThereIsNoArrayOfObjects) {
  for (const char* media :
       {"[]", "{}", "null", R"("x")", R"([{"_name": "no volumes"}])", R"([{"volumes": {}}])",
        R"([{"volumes": [{"mount_point": "/a"}, 1]}])",
        R"([{"volumes": [{"mount_point": "/a"}]}, "x"])", R"([{"mount_point": "/a"}])"}) {
    SCOPED_TRACE(media);
    EXPECT_EQ(volumesOf(media), Volumes{});
  }
}

TEST(UsbReport, StillReadsTheOtherMediaBesideOneWithBadVolumes) {
  EXPECT_EQ(volumesOf(R"([{"volumes": ["x"]}, {"volumes": [{"mount_point": "/b"}]}])"),
            (Volumes{{"", "/b"}}));
}

} // namespace
} // namespace tamberline
