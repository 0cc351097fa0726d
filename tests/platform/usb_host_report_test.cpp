#include "platform/macos/usb_host_report.h"
#include "reports/report_decoding.h"
#include "reports/usb_report.h"
#include "support/bus_text.h"
#include "support/sample_records.h"
#include "tree/port_tree.h"
#include "tree/search_entries.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

json translated(const std::string& section, VolumesByLocation volumes = {},
                const ThunderboltPorts& ports = {}) {
  return usbReportFrom(json::parse(R"({"SPUSBHostDataType": )" + section + "}"), std::move(volumes),
                       ports);
}

/// The buses as the rest of the program sees them.
std::vector<USBBus> busesOf(const std::string& section, VolumesByLocation volumes = {},
                            const ThunderboltPorts& ports = {}) {
  return parseUSB(translated(section, std::move(volumes), ports), {});
}

/// The translation of a device with these members, as JSON.
json translatedDevice(const std::string& members) {
  return translated(R"([{"_items": [{)" + members + "}]}]")["SPUSBDataType"][0]["_items"][0];
}

/// The one device with these members.
USBDevice deviceOf(const json& members, VolumesByLocation volumes = {}) {
  json item = {{"_name", "x"}};
  item.update(members);
  const auto buses = busesOf(json::array({{{"_items", json::array({item})}}}).dump(), volumes);
  return buses.at(0).devices[0];
}

constexpr const char* laptop = R"json([
  {"_name": "USB 3.1 Bus", "Driver": "AppleT8132USBXHCI", "USBKeyHardwareType": "Built-in",
   "USBKeyLocationID": "0x01000000",
   "_items": [
     {"_name": " USB 3 Hub", "USBDeviceKeyLinkSpeed": "10 Gb/s", "USBKeyLocationID": "0x01200000",
      "USBDeviceKeyUSB4Tunnel": "No",
      "_items": [
        {"_name": "Quarry Portable SSD", "USBDeviceKeyVendorID": "0xe347",
         "USBDeviceKeyProductID": "0x0210", "USBDeviceKeyVendorName": "Quarry Storage",
         "USBDeviceKeySerialNumber": "Q-1", "USBDeviceKeyLinkSpeed": "5 Gb/s",
         "USBDeviceKeyPowerAllocation": "4.48 W (896 mA)", "USBKeyLocationID": "0x01210000"},
        {"_name": "Keys", "USBDeviceKeyLinkSpeed": "1.5 Mb/s"}]}]},
  {"_name": "USB 4.0 Bus", "Driver": "AppleT8132USBXHCI", "USBKeyLocationID": "0x00000000"},
  {"_name": "USB 2.0 Bus", "Driver": "AppleUSBXHCIPCI", "_items": [
     {"_name": "Stick", "USBDeviceKeyLinkSpeed": "480 Mb/s"}]}
])json";

TEST(UsbHostReport, GivesTheTreeOfTheOlderReport) {
  const auto buses = busesOf(laptop, {}, {0, 1, 2});
  EXPECT_EQ(busText(buses), "USB31Bus\n"
                            "  USB 3 Hub super_speed_plus\n"
                            "    Quarry Portable SSD super_speed\n"
                            "    Keys low_speed\n"
                            "USB31Bus\n"
                            "USB20Bus\n"
                            "  Stick high_speed\n");
  EXPECT_EQ(buses[0].hostController, "AppleT8132USBXHCI");
  EXPECT_TRUE(buses[0].isInternalTBController());
  EXPECT_TRUE(buses[1].isInternalTBController());
  EXPECT_FALSE(buses[2].isInternalTBController());
}

TEST(UsbHostReport, GivesEveryFieldOfADevice) {
  const USBDevice disk = busesOf(laptop)[0].devices[0].children[0];
  EXPECT_EQ(disk.vendorID, "0xe347");
  EXPECT_EQ(disk.productID, "0x0210");
  EXPECT_EQ(disk.manufacturer, "Quarry Storage");
  EXPECT_EQ(disk.serialNumber, "Q-1");
  EXPECT_EQ(disk.physicalPort, 1);
  EXPECT_EQ(disk.busPowerUsed, 896);
  EXPECT_EQ(disk.busPower, std::nullopt);
  EXPECT_TRUE(disk.volumes.empty());
}

/// The buses of a machine whose ports 1, 2 and 4 have Thunderbolt, with those marked that are
/// assigned to a port.
std::string placesText(const std::string& section) {
  std::string text;
  for (const USBBus& bus : parseUSB(translated(section, {}, {0, 1, 3}), {})) {
    text += bus.isInternalTBController() ? "ports' own" : "bus " + bus.displayName();
    text += " [" + bus.hostController + "]";
    for (const USBDevice& device : bus.devices) {
      text += " " + device.name;
    }
    text += "\n";
  }
  return text;
}

TEST(UsbHostReport, KeepsEveryDeviceOfASmallDesktop) {
  EXPECT_EQ(placesText(R"json([
    {"_name": "USB 3.1 Bus", "Driver": "AppleT8132USBXHCI", "USBKeyLocationID": "0x00000000",
     "_items": [{"_name": "Disk", "USBKeyLocationID": "0x00100000"}]},
    {"_name": "USB 3.1 Bus", "Driver": "AppleT8132USBXHCI", "USBKeyLocationID": "0x01000000"},
    {"_name": "USB 3.1 Bus", "Driver": "AppleT8132USBXHCI", "USBKeyLocationID": "0x02000000",
     "_items": [
       {"_name": "Front 2", "USBKeyLocationID": "0x02100000",
        "_items": [{"_name": "Keys", "USBKeyLocationID": "0x02110000"}]},
       {"_name": "Front 3", "USBKeyLocationID": "0x02200000"}]},
    {"_name": "USB 3.1 Bus", "Driver": "AppleT8132USBXHCI", "USBKeyLocationID": "0x03000000",
     "_items": [{"_name": "Stick", "USBKeyLocationID": "0x03100000"}]}])json"),
            "ports' own [AppleT8132USBXHCI] Disk\n"
            "ports' own [AppleT8132USBXHCI]\n"
            "bus USB 3.1 Bus [AppleT8132USB-XHCI] Front 2 Front 3\n"
            "ports' own [AppleT8132USBXHCI] Stick\n");
}

TEST(UsbHostReport, AssignsDevicesOnTheComputersOwnControllersToNoDock) {
  const std::vector<USBBus> buses = busesOf(R"json([
    {"Driver": "AppleT8132USBXHCI", "_items": [{"_name": "Front", "USBKeyLocationID": "0x02100000"}]},
    {"Driver": "AppleUSBXHCIFL1100", "_items": [{"_name": "Disk", "USBKeyLocationID": "0x03100000"}]}
  ])json");
  ASSERT_EQ(buses.size(), 2U);
  EXPECT_TRUE(buses[0].isBuiltIn);
  EXPECT_FALSE(buses[1].isBuiltIn);
}

TEST(UsbHostReport, GivesEveryDeviceAPlaceInTheTree) {
  const PortTreeInputs inputs{
      .thunderboltBuses = {thunderboltBus(0), thunderboltBus(1), thunderboltBus(3)},
      .usbBuses = busesOf(R"json([
        {"Driver": "AppleT8132USBXHCI", "_items": [
          {"_name": "Disk", "USBKeyLocationID": "0x01100000"}, {"_name": "Nowhere"}]},
        {"Driver": "AppleT8142USBXHCI", "_items": [
          {"_name": "Front", "USBKeyLocationID": "0x02100000", "_items": [{"_name": "Keys"}]}]},
        {"Driver": "AppleT8103USBXHCIFL1100", "_items": [
          {"_name": "Drawer", "USBKeyLocationID": "0x00100000"}]}])json",
                          {}, {0, 1, 3})};
  std::string places;
  for (const SearchEntry& entry : flattenSearchable(buildPortTree(inputs))) {
    places += entry.breadcrumb + ": " + entry.name + "\n";
  }
  EXPECT_EQ(places, "Thunderbolt Port 2: Disk\n"
                    "USB Bus: Nowhere\n"
                    "USB Bus: Front\n"
                    "USB Bus › Front: Keys\n"
                    "USB Bus: Drawer\n");
}

TEST(UsbHostReport, PutsTheDevicesOfTheComputersOwnControllersOnTheirPorts) {
  const struct {
    const char* driver;
    const char* location;
    const char* place;
  } rows[] = {
      {"AppleT8132USBXHCI", "0x01100000", "ports' own [AppleT8132USBXHCI] x\n"},
      {"AppleT8122USBXHCI", "0x01100000",
       "ports' own [AppleT8122USBXHCI, like AppleT8132USBXHCI] x\n"},
      {"AppleT8142USBXHCI", "0x00100000",
       "ports' own [AppleT8142USBXHCI, like AppleT8132USBXHCI] x\n"},
      {"AppleT6041USBXHCI", "0x01100000 / 1",
       "ports' own [AppleT6041USBXHCI, like AppleT8132USBXHCI] x\n"},
      {"AppleT6050USBXHCIAUSS", "0x01100000",
       "ports' own [AppleT6050USBXHCIAUSS, like AppleT8132USBXHCI] x\n"},
      {"AppleT6050USBXHCIAUSS", "0x08100000", "bus USB Bus [AppleT6050USBXHCIAUSS] x\n"},
      {"AppleT8132USBXHCIAUSS", "0x08100000", "bus USB Bus [AppleT8132USB-XHCIAUSS] x\n"},
      {"AppleT8122USBXHCI", "0x02100000", "bus USB Bus [AppleT8122USBXHCI] x\n"},
      {"AppleT8132USBXHCI", "0x02100000", "bus USB Bus [AppleT8132USB-XHCI] x\n"},
      {"AppleT8132USBXHCI", "somewhere", "bus USB Bus [AppleT8132USB-XHCI] x\n"},
      {"AppleT8132USBXHCI", "Not Provided", "bus USB Bus [AppleT8132USB-XHCI] x\n"},
      {"AppleT8122USBXHCI", "-1", "bus USB Bus [AppleT8122USBXHCI] x\n"},
      {"AppleT8103USBXHCIFL1100", "0x01100000", "bus USB Bus [AppleT8103USB-XHCIFL1100] x\n"},
      {"AppleEmbeddedUSBXHCIFL1100", "0x01100000", "bus USB Bus [AppleEmbeddedUSBXHCIFL1100] x\n"},
      {"AppleUSBXHCIPCI", "0x01100000", "bus USB Bus [AppleUSBXHCIPCI] x\n"},
      {"AppleASMedia3142USBXHCI", "0x01100000", "bus USB Bus [AppleASMedia3142USBXHCI] x\n"},
      {"AppleT8103USBXHCIAUSS1", "0x01100000", "bus USB Bus [AppleT8103USB-XHCIAUSS1] x\n"},
      {"AppleTUSBXHCI", "0x01100000", "bus USB Bus [AppleTUSBXHCI] x\n"},
      {"AppleTrueUSBXHCI", "0x01100000", "bus USB Bus [AppleTrueUSBXHCI] x\n"},
      {"T8112USBXHCI", "0x01100000", "bus USB Bus [T8112USB-XHCI] x\n"},
      {"", "0x01100000", "bus USB Bus [] x\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.driver) + " at " + row.location);
    const json item = {{"_name", "x"}, {"USBKeyLocationID", row.location}};
    const json entry = {{"Driver", row.driver}, {"_items", json::array({item})}};
    EXPECT_EQ(placesText(json::array({entry}).dump()), row.place);
  }
}

TEST(UsbHostReport, SplitsABusWhoseDevicesAreNotAllOnPorts) {
  EXPECT_EQ(placesText(R"([{"_name": "USB 3.1 Bus", "Driver": "AppleT8122USBXHCI", "_items": [
              {"_name": "a", "USBKeyLocationID": "0x01100000"},
              {"_name": "b"},
              {"_name": "c", "USBKeyLocationID": "0x03200000"}]}])"),
            "ports' own [AppleT8122USBXHCI, like AppleT8132USBXHCI] a c\n"
            "bus USB 3.1 Bus [AppleT8122USBXHCI] b\n");
}

TEST(UsbHostReport, MakesNoCardForTheComputersOwnBusesWithoutDevices) {
  EXPECT_EQ(placesText(R"([{"Driver": "AppleT8122USBXHCI", "USBKeyLocationID": "0x02000000"},
                           {"Driver": "AppleT8132USBXHCI", "USBKeyLocationID": "0x01000000"},
                           {"_name": "USB 4.0 Bus", "Driver": "AppleT6050USBXHCIAUSS",
                            "USBKeyLocationID": "0x08000000"},
                           {"Driver": "AppleUSBXHCIPCI"}, {}])"),
            "ports' own [AppleT8122USBXHCI, like AppleT8132USBXHCI]\n"
            "ports' own [AppleT8132USBXHCI]\n"
            "ports' own [AppleT6050USBXHCIAUSS, like AppleT8132USBXHCI]\n"
            "bus USB Bus [AppleUSBXHCIPCI]\n"
            "bus USB Bus []\n");
}

TEST(UsbHostReport, AsksForThePortsOnlyWhereADeviceNeedsThem) {
  const struct {
    const char* section;
    bool isInNeed;
  } rows[] = {
      {R"([{"Driver": "AppleUSBXHCIPCI"}, {"Driver": "AppleT8122USBXHCI", "_items": [{}]}])", true},
      {R"([{"Driver": "AppleT8132USBXHCI", "_items": [{}]}])", true},
      {R"([{"Driver": "AppleT8132USBXHCI"}, {"Driver": "AppleT8122USBXHCI", "_items": []}])",
       false},
      {R"([{"Driver": "AppleUSBXHCIPCI", "_items": [{}]}])", false},
      {R"([{"Driver": "AppleT8103USBXHCIFL1100", "_items": [{}]}])", false},
      {R"([{"Driver": 8122, "_items": [{}]}])", false},
      {R"([])", false},
      {R"({"Driver": "AppleT8122USBXHCI", "_items": [{}]})", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.section);
    const json report = {{"SPUSBHostDataType", json::parse(row.section)}};
    EXPECT_EQ(needsThunderboltPorts(report), row.isInNeed);
  }
  EXPECT_FALSE(needsThunderboltPorts(json::object()));
}

TEST(UsbHostReport, AddsNothingToTheReport) {
  EXPECT_EQ(translatedDevice(""), json::object());
  EXPECT_EQ(translatedDevice(R"("_name": "x", "_items": [], "Unknown": {"a": [1]})"),
            json({{"_name", "x"}}));
  EXPECT_EQ(translated("[{}]"), json::parse(R"({"SPUSBDataType": [{}]})"));
}

TEST(UsbHostReport, TreatsValuesOfAnotherTypeAsAbsent) {
  EXPECT_EQ(translatedDevice(R"("_name": 1, "USBDeviceKeyVendorID": 781,
      "USBDeviceKeyProductID": [], "USBDeviceKeyVendorName": {}, "USBDeviceKeySerialNumber": true,
      "USBDeviceKeyLinkSpeed": 5, "USBDeviceKeyPowerAllocation": 896, "USBKeyLocationID": 33554432,
      "_items": {"_name": "x"})"),
            json::object());
  EXPECT_EQ(translated(R"([{"_name": null, "Driver": 1, "_items": "x"}])"),
            json::parse(R"({"SPUSBDataType": [{}]})"));
}

TEST(UsbHostReport, WithoutItsSectionIsEmpty) {
  const json empty = json::parse(R"({"SPUSBDataType": []})");
  for (const char* report : {"{}", R"({"SPUSBHostDataType": {}})", R"({"SPUSBHostDataType": [1]})",
                             R"({"SPUSBHostDataType": "x"})", R"({"SPUSBHostDataType": null})"}) {
    SCOPED_TRACE(report);
    EXPECT_EQ(usbReportFrom(json::parse(report), {}, {}), empty);
  }
}

TEST(UsbHostReport, TreatsNotProvidedAsAbsent) {
  EXPECT_EQ(translatedDevice(R"("_name": "Not Provided", "USBDeviceKeyVendorID": "Not Provided",
      "USBDeviceKeyVendorName": "Not Provided", "USBDeviceKeySerialNumber": "Not Provided",
      "USBDeviceKeyLinkSpeed": "Not Provided", "USBDeviceKeyPowerAllocation": "Not Provided")"),
            json({{"_name", "Not Provided"}}));
  EXPECT_EQ(deviceOf({{"USBDeviceKeySerialNumber", ""}}).serialNumber, "");
}

TEST(UsbHostReport, GivesBusesTheNamesByWhichTheirSpeedIsKnown) {
  const struct {
    const char* name;
    const char* rawName;
    double maxSpeedGbps;
  } table[] = {
      {"USB 2.0 Bus", "USB20Bus", 0.48},
      {"USB 3.0 Bus", "USB30Bus", 5.0},
      {"USB 3.1 Bus", "USB31Bus", 10.0},
      {"USB 3.2 Bus", "USB31Bus", 10.0},
      {"USB 4.0 Bus", "USB31Bus", 10.0},
      {"USB 4 Bus", "USB31Bus", 10.0},
      {"USB 2 Bus", "USB20Bus", 0.48},
      {"USB 3 Bus", "USB30Bus", 5.0},
      {"USB 20 Bus", "USB 20 Bus", 5.0},
      {"USB31Bus", "USB31Bus", 10.0},
      {"USB 1.1 Bus", "USB 1.1 Bus", 5.0},
      {"Bus", "Bus", 5.0},
      {"", "", 5.0},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.name);
    const USBBus bus = busesOf(json::array({{{"_name", row.name}}}).dump()).at(0);
    EXPECT_EQ(bus.rawName, row.rawName);
    EXPECT_EQ(bus.maxSpeedGbps(), row.maxSpeedGbps);
  }
}

TEST(UsbHostReport, GivesSpeedsInWhateverSpelling) {
  const struct {
    const char* linkSpeed;
    const char* label;
    double gbps;
  } table[] = {
      {"1.5 Mb/s", "1.5 Mb/s", 0.0015},
      {"1,5 Mb/s", "1.5 Mb/s", 0.0015},
      {"1.50 Mb/s", "1.5 Mb/s", 0.0015},
      {"12 Mb/s", "12 Mb/s", 0.012},
      {"480 Mb/s", "480 Mb/s", 0.48},
      {"480Mb/s", "480 Mb/s", 0.48},
      {"480 MBit/s", "480 Mb/s", 0.48},
      {"0.48 Gb/s", "480 Mb/s", 0.48},
      {"5 Gb/s", "5 Gb/s", 5},
      {"5.0 Gb/s", "5 Gb/s", 5},
      {"5000 Mb/s", "5 Gb/s", 5},
      {"5\u00a0Gbit/s", "5 Gb/s", 5},
      {"10 Gb/s", "10 Gb/s", 10},
      {"10 Gbps", "10 Gb/s", 10},
      {"10gbps", "10 Gb/s", 10},
      {"Up to 10 Gb/s", "10 Gb/s", 10},
      {"USB 3.2 Gen 2, 10 Gb/s", "10 Gb/s", 10},
      {"super_speed_plus", "10 Gb/s", 10},
      // Faster than any speed bar or USB device: shown without a verdict.
      {"20 Gb/s", "20 Gb/s", 0},
      {"Up to 20 GBPS", "20 Gb/s", 0},
      {"40 Gb/s", "40 Gb/s", 0},
      {"40000 Mb/s", "40 Gb/s", 0},
      {"80 Gb/s", "80 Gb/s", 0},
      {"100 Mb/s", "100 Mb/s", 0},
      {"2,5 Gb/s", "2.5 Gb/s", 0},
      {"12 (Mb/s)", "12 (Mb/s)", 0},
      {"5 GHz", "5 GHz", 0},
      {"5", "5", 0},
      {" fast ", "fast", 0},
      {"Gb/s", "Gb/s", 0},
      {"9999999 Gb/s", "9999999 Gb/s", 0},
      {"999999 Gb/s", "999999 Gb/s", 0},
      {"99999999999999999999 Mb/s", "99999999999999999999 Mb/s", 0},
      {"", "—", 0},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.linkSpeed);
    const USBDevice device = deviceOf({{"USBDeviceKeyLinkSpeed", row.linkSpeed}});
    EXPECT_EQ(device.speedShortLabel(), row.label);
    EXPECT_EQ(device.speedGbps(), row.gbps);
  }
}

TEST(UsbHostReport, GivesTheAllocatedCurrentAsRatedDraw) {
  const struct {
    const char* allocation;
    std::optional<std::int64_t> milliamperes;
  } table[] = {
      {"4.48 W (896 mA)", 896},
      {"2.5 W (500 mA)", 500},
      {"4,48 W (896 mA)", 896},
      {"4,48\u00a0W (896\u00a0mA)", 896},
      {"7.5 W (1,500 mA)", 1500},
      {"7,5 W (1.500 mA)", 1500},
      {"(896 mA)", 896},
      {"896mA", 896},
      {"0 W (0 mA)", 0},
      {"4.48 W", 896},
      {"2,5 W", 500},
      {"4.48 W (none)", 896},
      {"-1 mA", 1}, // signs are not allowed there
      {"4 Wh", std::nullopt},
      {"896", std::nullopt},
      {"mA", std::nullopt},
      {"", std::nullopt},
      {"9223372036854775807 mA", 9223372036854775807},
      {"9223372036854775808 mA", std::nullopt},
      {"99999999999999999999999 W", std::nullopt},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.allocation);
    const USBDevice device = deviceOf({{"USBDeviceKeyPowerAllocation", row.allocation}});
    EXPECT_EQ(device.busPowerUsed, row.milliamperes);
    EXPECT_EQ(device.busPower, std::nullopt);
  }
}

TEST(UsbHostReport, MarksBuiltInAndTunneledDevices) {
  const USBDevice front =
      deviceOf({{"USBKeyHardwareType", "Non-removable"}, {"USBDeviceKeyUSB4Tunnel", "No"}});
  EXPECT_EQ(front.isBuiltIn, true);
  EXPECT_EQ(front.isTunneled, false);
  const USBDevice behindADock =
      deviceOf({{"USBKeyHardwareType", "Removable"}, {"USBDeviceKeyUSB4Tunnel", "Yes"}});
  EXPECT_EQ(behindADock.isBuiltIn, false);
  EXPECT_EQ(behindADock.isTunneled, true);
  const USBDevice unknown =
      deviceOf({{"USBKeyHardwareType", "Mystery"}, {"USBDeviceKeyUSB4Tunnel", true}});
  EXPECT_EQ(unknown.isBuiltIn, std::nullopt);
  EXPECT_EQ(unknown.isTunneled, std::nullopt);
}

TEST(UsbHostReport, GivesTheVolumesAtADevicesLocation) {
  const USBVolume data{"Data", "/Volumes/Data"};
  const USBVolume more{"More", "/Volumes/More"};
  const struct {
    const char* location;
    std::vector<USBVolume> expected;
  } table[] = {
      {"0x02100000", {data, more}},
      {"0x02100000 / 7", {data, more}},
      {"2100000", {data, more}},
      {"0xff100000", {{"High", "/Volumes/High"}}},
      {"0x02110000", {}},
      {"none", {}},
      {"", {}},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.location);
    const USBDevice device = deviceOf(
        {{"USBKeyLocationID", row.location}},
        {{0x02100000, {data, more}}, {0xff100000, {{"High", "/Volumes/High"}}}, {0, {data}}});
    EXPECT_EQ(device.volumes, row.expected);
  }
  EXPECT_TRUE(deviceOf(json::object(), {{0, {data}}}).volumes.empty());
}

TEST(UsbHostReport, GivesVolumesOnlyOnce) {
  const auto buses = busesOf(R"([
    {"_items": [{"_name": "hub", "USBKeyLocationID": "0x01200000", "_items": [
      {"_name": "first", "USBKeyLocationID": "0x01210000"},
      {"_name": "second", "USBKeyLocationID": "0x01210000"}]}]},
    {"_items": [{"_name": "third", "USBKeyLocationID": "0x01210000"}]}])",
                             {{0x01210000, {{"Data", "/Volumes/Data"}}}});
  const USBDevice& hub = buses.at(0).devices[0];
  EXPECT_TRUE(hub.volumes.empty());
  EXPECT_EQ(hub.children[0].volumes.size(), 1U);
  EXPECT_TRUE(hub.children[1].volumes.empty());
  EXPECT_TRUE(buses.at(1).devices[0].volumes.empty());
}

TEST(UsbHostReport, PassesNamesOnUnchanged) {
  const std::string name("<b>\x1b[31m\0\u202e", 12);
  EXPECT_EQ(deviceOf({{"_name", " \n" + name + " "}}).name, name);
  EXPECT_EQ(deviceOf({{"_name", "  "}}).name, "");
  EXPECT_EQ(deviceOf({{"USBDeviceKeyVendorName", " " + name + "  "}}).manufacturer, name);
  EXPECT_EQ(deviceOf({{"USBDeviceKeySerialNumber", " 1 "}}).serialNumber, " 1 ");
}

/// A report with a chain of devices, each with a location.
std::string chain(int length) {
  std::string opening;
  std::string closing;
  for (int number = 0; number < length; ++number) {
    opening +=
        R"({"_name": "d", "USBKeyLocationID": ")" + std::to_string(number) + R"(", "_items": [)";
    closing += "]}";
  }
  return R"({"SPUSBHostDataType": [{"_items": [)" + opening + closing + "]}]}";
}

int lengthOfChain(const SharedList<USBDevice>& devices) {
  return devices.empty() ? 0 : 1 + lengthOfChain(devices[0].children);
}

TEST(UsbHostReport, OfTheDeepestReportThatDecodesCanBeDecodedAgain) {
  for (int length = 1; length < maxReportNesting / 2; length += length < 240 ? 20 : 1) {
    SCOPED_TRACE(length);
    const auto deep = decodeReport(chain(length));
    if (!deep) {
      EXPECT_GT(length, 254);
      continue;
    }
    VolumesByLocation volumes;
    for (int number = 0; number < length; ++number) {
      volumes[*parseLocationID(std::to_string(number))] = {{"Data", "/Volumes/Data"}};
    }
    const auto again = decodeReport(usbReportFrom(*deep, volumes, {}).dump());
    ASSERT_TRUE(again);
    EXPECT_EQ(lengthOfChain(parseUSB(*again, {}).at(0).devices), std::min(length, 252));
  }
}

TEST(UsbHostReport, FindsValuesAfterManyNumbers) {
  std::string numbers;
  for (int count = 0; count < 300'000; ++count) {
    numbers += "1 ";
  }
  EXPECT_EQ(deviceOf({{"USBDeviceKeyPowerAllocation", numbers + "896 mA"}}).busPowerUsed, 896);
  EXPECT_EQ(deviceOf({{"USBDeviceKeyLinkSpeed", numbers + "5 Gb/s"}}).speed, "super_speed");
}

} // namespace
} // namespace tamberline
