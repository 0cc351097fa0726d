#include "model/usb_host_devices.h"
#include "platform/linux/sysfs/report/report_sections.h"
#include "reports/power_report.h"
#include "reports/thunderbolt_report.h"
#include "reports/usb_report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {
namespace {

std::string devicesText(const SharedList<USBDevice>& devices, const std::string& indent) {
  std::string text;
  for (const USBDevice& device : devices) {
    text += indent + device.name + " " + device.speed + " port " +
            std::to_string(device.physicalPort.value_or(-1)) + "\n" +
            devicesText(device.children, indent + "  ");
  }
  return text;
}

/// Each bus with its devices, as a scan reads them.
std::string usbText(const Machine& machine) {
  std::string text;
  for (const USBBus& bus : parseUSB(usbSection(machine), ContainerIDs())) {
    text += bus.rawName + (bus.isInternalTBController() ? " internal" : "") + "\n" +
            devicesText(bus.devices, "  ");
  }
  return text;
}

UsbDevice named(const char* name, const char* megabits = "480") {
  return {.name = name, .vendorId = "1234", .productId = "abcd", .megabitsPerSecond = megabits};
}

TEST(UsbSection, HasABusForEachRootHub) {
  Machine machine;
  machine.usb.devices = {{{1}, named("xHCI", "480")},        {{2}, named("xHCI", "5000")},
                         {{3}, named("xHCI", "20000")},      {{4}, named("UHCI", "12")},
                         {{1, {2}}, named("Hub", "480")},    {{1, {2, 10}}, named("Mouse", "1.5")},
                         {{1, {2, 9}}, named("Key", "12")},  {{2, {1}}, named("Drive", "5000")},
                         {{3, {1}}, named("Fast", "10000")}, {{3, {2}}, named("Faster", "20000")}};
  EXPECT_EQ(usbText(machine), "USB20Bus\n"
                              "  Hub high_speed port 255\n"
                              "    Key full_speed port 255\n"
                              "    Mouse low_speed port 255\n"
                              "USB30Bus\n"
                              "  Drive super_speed port 255\n"
                              "USB31Bus\n"
                              "  Fast super_speed_plus port 255\n"
                              "  Faster 20 Gb/s port 255\n"
                              "USB20Bus\n");
}

TEST(UsbSection, TellsSpeedsThatHaveNoName) {
  Machine machine;
  machine.usb.devices = {{{3}, named("xHCI", "20000")},
                         {{3, {1}}, named("Fallen back", "10000")},
                         {{3, {2}}, named("Two lanes", "20000")}};
  machine.usb.devices.at({3}).isOnBuiltInController = true;
  const USBBus bus = parseUSB(usbSection(machine), ContainerIDs()).front();
  EXPECT_EQ(bus.maxSpeedGbps(), 20);
  EXPECT_EQ(bus.maxSpeedLabel(), "max 20 Gb/s");
  EXPECT_TRUE(bus.isBuiltIn);
  const auto& devices = bus.devices;
  EXPECT_EQ(devices.begin()->speedFraction(20), 0.5);
  EXPECT_EQ(std::next(devices.begin())->speedGbps(), 20);
  EXPECT_EQ(std::next(devices.begin())->speedShortLabel(), "20 Gb/s");
  EXPECT_EQ(std::next(devices.begin())->speedDetailLabel(), "USB 3.2 Gen 2x2");
}

TEST(UsbSection, HasAnInternalBusExactlyForWhatIsOnPortsOfTheCase) {
  Machine machine;
  machine.typecPorts = {{0, {}}, {1, {}}};
  machine.usb.devices = {{{1}, named("xHCI")},
                         {{1, {1}}, named("Hub")},
                         {{1, {1, 1}}, named("Behind hub")},
                         {{1, {3}}, named("Camera")},
                         {{1, {4}}, named("Built-in hub")},
                         {{1, {4, 2}}, named("On the port of a built-in hub")}};
  machine.usb.ports = {{{1, {1}}, {.connector = 1}},
                       {{1, {3}}, {}},
                       {{1, {4}}, {}},
                       {{1, {4, 2}}, {.connector = 0}}};
  EXPECT_EQ(usbText(machine), "USB20Bus internal\n"
                              "  Hub high_speed port 1\n"
                              "    Behind hub high_speed port 1\n"
                              "  On the port of a built-in hub high_speed port 0\n"
                              "USB20Bus\n"
                              "  Camera high_speed port 255\n"
                              "  Built-in hub high_speed port 255\n");
}

TEST(UsbSection, HasNoOtherBusWhereAllPortsAreOnTheCase) {
  Machine machine;
  machine.typecPorts = {{0, {}}};
  machine.usb.devices = {{{1}, named("xHCI")}};
  machine.usb.ports = {{{1, {1}}, {.connector = 0}}};
  EXPECT_EQ(usbText(machine), "USB20Bus internal\n");
}

TEST(UsbSection, KeepsDevicesWhoseHubDisappeared) {
  Machine machine;
  machine.usb.devices = {{{3, {1, 2}}, named("Orphan")}};
  EXPECT_EQ(usbText(machine), "USB20Bus\n  Orphan high_speed port 255\n");
}

TEST(UsbSection, NamesNamelessDevices) {
  Machine machine;
  machine.usb.devices = {{{1, {1}}, {.vendorId = "1234", .productId = "abcd"}},
                         {{1, {2}}, {.vendorId = "1234", .isHub = true}}};
  EXPECT_EQ(usbText(machine), "USB20Bus\n"
                              "  USB Device 1234:abcd  port 255\n"
                              "  hub_device  port 255\n");
}

TEST(UsbSection, HandsOnCurrentSerialAndVolumes) {
  Machine machine;
  machine.usb.devices = {{{1, {1}},
                          {.name = "Drive",
                           .manufacturer = "Quarry",
                           .vendorId = "04e8",
                           .productId = "61f5",
                           .serialNumber = "OB-1",
                           .ratedMa = 896,
                           .volumes = {{"Tools", "/media/Tools"}}}}};
  const USBDevice device = *parseUSB(usbSection(machine), ContainerIDs()).front().devices.begin();
  EXPECT_EQ(device.manufacturer, "Quarry");
  EXPECT_EQ(device.vendorID, "0x04e8");
  EXPECT_EQ(device.productID, "0x61f5");
  EXPECT_EQ(device.serialNumber, "OB-1");
  EXPECT_EQ(device.busPower, std::nullopt);
  EXPECT_EQ(device.busPowerUsed, 896);
  EXPECT_EQ(device.volumes, (std::vector<USBVolume>{{"Tools", "/media/Tools"}}));
}

ThunderboltDevice deviceWith(const Router& router) {
  Machine machine;
  machine.thunderbolt.routers = {{{0, 0}, {}}, {{0, 1}, router}};
  return *parseThunderbolt(thunderboltSection(machine)).front().connectedDevices.begin();
}

TEST(ThunderboltSection, TellsHowARouterIsLinked) {
  const struct {
    std::int64_t generation;
    const char* speed;
    std::int64_t lanes;
    const char* mode;
    const char* label;
  } table[] = {
      {4, "20.0 Gb/s", 2, "USB4 40G", "20 Gb/s ×2 = 40 Gb/s"},
      {4, "10.0 Gb/s", 2, "USB4 20G", "10 Gb/s ×2 = 20 Gb/s"},
      {4, "10.0 Gb/s", 1, "USB4 10G", "10 Gb/s"},
      {4, "40.0 Gb/s", 2, "Usb4 Gen4x2", "40 Gb/s ×2 = 80 Gb/s"},
      {4, "", 2, "Usb4", ""},
      {3, "20.0 Gb/s", 2, "TB3", "20 Gb/s ×2 = 40 Gb/s"},
      {2, "10.0 Gb/s", 2, "TBTwo", "10 Gb/s ×2 = 20 Gb/s"},
      {1, "10.0 Gb/s", 1, "TBOne", "10 Gb/s"},
      {0, "20.0 Gb/s", 2, "", "20 Gb/s ×2 = 40 Gb/s"},
  };
  for (const auto& row : table) {
    const ThunderboltDevice device = deviceWith(
        {.fromHost = {.speedOfLane = row.speed, .lanes = row.lanes}, .generation = row.generation});
    EXPECT_EQ(device.modeLabel(), row.mode);
    EXPECT_EQ(device.upstreamLabel(), row.label);
  }
}

TEST(ThunderboltSection, HangsRoutersBelowEachOther) {
  Machine machine;
  machine.thunderbolt.routers = {
      {{0, 0}, {.name = "Laptop", .uid = "U"}},
      {{0, 0x1}, {.name = "Dock", .vendor = "Pier", .uid = "D", .firmwareVersion = "5.1"}},
      {{0, 0x301}, {}},
      {{0, 0x20301}, {.name = "Last"}}};
  const ThunderboltBus bus = parseThunderbolt(thunderboltSection(machine)).front();
  EXPECT_EQ(bus.busNumber, 0);
  EXPECT_EQ(bus.hostName, "Laptop");
  EXPECT_TRUE(bus.port.isConnected());
  const ThunderboltDevice& dock = *bus.connectedDevices.begin();
  EXPECT_EQ(dock.name + " " + dock.vendorName + " " + dock.uid + " " + dock.firmwareVersion,
            "Dock Pier D 5.1");
  const ThunderboltDevice& unnamed = *dock.children.begin();
  EXPECT_EQ(unnamed.name, "Thunderbolt Device");
  EXPECT_EQ(unnamed.children.begin()->name, "Last");
}

TEST(ThunderboltSection, HasAPortForEachUsbCPort) {
  Machine machine;
  machine.typecPorts = {{0, {.partner = TypecPartner{}}}, {3, {}}};
  const auto buses = parseThunderbolt(thunderboltSection(machine));
  ASSERT_EQ(buses.size(), 2U);
  EXPECT_TRUE(buses[0].port.isConnected());
  EXPECT_EQ(buses[1].busNumber, 3);
  EXPECT_FALSE(buses[1].port.isConnected());
}

TEST(ThunderboltSection, TellsWhetherARouterIsAuthorised) {
  EXPECT_EQ(deviceWith({.isAuthorized = true}).isAuthorized, true);
  EXPECT_EQ(deviceWith({.isAuthorized = false}).isAuthorized, false);
  EXPECT_EQ(deviceWith({}).isAuthorized, std::nullopt);
}

TEST(ThunderboltSection, HasTheDrivesOfAnEnclosure) {
  const ThunderboltDevice device = deviceWith(
      {.fromHost = {.speedOfLane = "20.0 Gb/s", .lanes = 2},
       .drives = {
           {.name = "Slate SSD", .serialNumber = "S-1", .volumes = {{"Films", "/media/Films"}}},
           {.name = "Second"}}});
  ASSERT_EQ(device.drives.size(), 2U);
  const USBDevice& drive = device.drives[0];
  EXPECT_TRUE(drive.isTunneledDrive);
  EXPECT_EQ(drive.name, "Slate SSD");
  EXPECT_EQ(drive.serialNumber, "S-1");
  EXPECT_EQ(drive.speedGbps(), 40);
  EXPECT_EQ(drive.speedShortLabel(), "40 Gb/s");
  EXPECT_EQ(drive.volumes, (std::vector<USBVolume>{{"Films", "/media/Films"}}));
  EXPECT_EQ(device.drives[1].serialNumber, std::nullopt);
}

TEST(PowerSection, TellsOfTheBattery) {
  Machine machine;
  machine.powerSupplies = {{.type = "Battery", .belongsToDevice = true, .capacityPercent = 5},
                           {.type = "Battery",
                            .status = "Charging",
                            .health = "Good",
                            .capacityPercent = 71,
                            .cycleCount = 212,
                            .fullCharge = 482,
                            .fullChargeByDesign = 570}};
  const PowerReading reading = parsePower(powerSection(machine));
  EXPECT_EQ(reading.battery, (BatteryInfo{.stateOfCharge = 71,
                                          .isFullyCharged = false,
                                          .isCharging = true,
                                          .health = "Good",
                                          .maxCapacityPercent = "85%",
                                          .cycleCount = 212}));
  ASSERT_TRUE(reading.charger);
  EXPECT_FALSE(reading.charger->isConnected);
}

TEST(PowerSection, TellsOfTheAdapterWhosePowerIsKnown) {
  Machine machine;
  machine.powerSupplies = {{.type = "Mains", .isOnline = true},
                           {.type = "USB",
                            .isOnline = true,
                            .voltageNow = 20'000'000,
                            .voltageMax = 20'000'000,
                            .currentNow = 1'500'000,
                            .currentMax = 3'250'000}};
  const PowerReading reading = parsePower(powerSection(machine));
  ASSERT_TRUE(reading.charger);
  EXPECT_TRUE(reading.charger->isConnected);
  EXPECT_EQ(reading.charger->name, "65W Power Adapter");
  EXPECT_EQ(reading.charger->ratedWatts, 65);
  EXPECT_EQ(reading.charger->currentWatts, 30);
}

TEST(PowerSection, HasTheRatingThatAnAdapterOffersOnItsUsbCPort) {
  Machine machine;
  machine.typecPorts = {
      {1, {.role = PowerRole::sink, .partner = TypecPartner{.offeredWatts = 96}}}};
  machine.powerSupplies = {{.type = "Mains", .isOnline = true}};
  const PowerReading reading = parsePower(powerSection(machine));
  ASSERT_TRUE(reading.charger);
  EXPECT_EQ(reading.charger->name, "96W USB-C Power Adapter");
  EXPECT_EQ(reading.charger->currentWatts, std::nullopt);
}

TEST(PowerSection, HasNoWattsWhereOnlyAnAgreementIsKnown) {
  Machine machine;
  machine.powerSupplies = {{.name = "ucsi-source-psy-USBC000:001",
                            .type = "USB",
                            .isOnline = true,
                            .voltageNow = 20'000'000,
                            .voltageMax = 20'000'000,
                            .currentNow = 3'000'000,
                            .currentMax = 3'250'000}};
  const PowerReading reading = parsePower(powerSection(machine));
  EXPECT_EQ(reading.charger->ratedWatts, 65);
  EXPECT_EQ(reading.charger->currentWatts, std::nullopt);
}

TEST(PowerSection, HasTheAdaptersOwnRatingWhereAKernelMisreadsIt) {
  // The last offer of each was a range from 3.3 or 5 to 11, 16 or 21 V, misread as a fixed voltage.
  const struct {
    std::int64_t millivoltsMax;
    std::int64_t milliamperesMax;
    std::optional<std::int64_t> expected;
  } table[] = {
      {13'200, 3560, 100}, // 3.3 to 21 V, 5 A
      {13'400, 5790, 67},  // 5 to 21 V, 3.35 A
      {400, 3560, 75},     // 3.3 to 16 V, 5 A
      {13'250, 3560, {}},  // not a range of the standard
      {13'201, 3560, {}},  // not an offer at all
  };
  for (const auto& row : table) {
    Machine machine;
    machine.powerSupplies = {{.name = "ucsi-source-psy-USBC000:001",
                              .type = "USB",
                              .isOnline = true,
                              .voltageNow = 20'000'000,
                              .voltageMax = row.millivoltsMax * 1000,
                              .currentNow = 3'250'000,
                              .currentMax = row.milliamperesMax * 1000}};
    EXPECT_EQ(parsePower(powerSection(machine)).charger->ratedWatts, row.expected)
        << row.millivoltsMax;
  }
}

TEST(PowerSection, HasNoRatingBelowWhatWasAgreedOn) {
  Machine machine;
  machine.powerSupplies = {{.name = "ucsi-source-psy-USBC000:001",
                            .type = "USB",
                            .isOnline = true,
                            .voltageNow = 20'000'000,
                            .voltageMax = 20'000'000,
                            .currentNow = 5'000'000,
                            .currentMax = 3'000'000}};
  EXPECT_EQ(parsePower(powerSection(machine)).charger->ratedWatts, std::nullopt);
}

TEST(PowerSection, SaysWhereAnAdapterIsThatIsOnNoKnownPort) {
  Machine machine;
  machine.powerSupplies = {{.type = "Mains", .isOnline = true}};
  ChargerInfo charger = *parsePower(powerSection(machine)).charger;
  EXPECT_TRUE(charger.isOnNoKnownPort);
  EXPECT_FALSE(charger.connectsViaUSBC);

  machine.powerSupplies = {{.type = "USB", .isOnline = true}};
  charger = *parsePower(powerSection(machine)).charger;
  EXPECT_TRUE(charger.isOnNoKnownPort);
  EXPECT_TRUE(charger.connectsViaUSBC);

  machine.typecPorts = {{0, {.role = PowerRole::sink, .partner = TypecPartner{}}}};
  EXPECT_FALSE(parsePower(powerSection(machine)).charger->isOnNoKnownPort);
}

TEST(PowerSection, SaysNothingOfAMachineWithoutSupplies) {
  const PowerReading reading = parsePower(powerSection(Machine()));
  EXPECT_FALSE(reading.battery);
  EXPECT_FALSE(reading.charger);
}

} // namespace
} // namespace tamberline::sysfs
