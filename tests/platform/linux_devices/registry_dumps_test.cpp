#include "platform/linux_devices/property_list_text.h"
#include "platform/linux_devices/registry_dumps.h"
#include "registry/battery_controller_ports.h"
#include "registry/container_id_entries.h"
#include "registry/port_controllers.h"
#include "registry/port_power.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

/// As the scan reads it.
PropertyList decoded(const json& dump) {
  auto list = PropertyList::decode(asPropertyList(dump));
  EXPECT_TRUE(list);
  return std::move(*list);
}

TEST(PropertyListText, HoldsEveryValueThatADumpHas) {
  const json value = {{"text", "a<b>&\"c\" ü"},
                      {"number", -12},
                      {"yes", true},
                      {"no", false},
                      {"list", {1, "two", json::object()}},
                      {"none", json::binary({})},
                      {"one", json::binary({0xFF})},
                      {"two", json::binary({0xB8, 0x0B})},
                      {"four", json::binary({1, 2, 3, 4})}};
  const PropertyList list = decoded(value);
  EXPECT_EQ(list.root().member("text").text(), "a<b>&\"c\" ü");
  EXPECT_EQ(list.root().member("number").integer(), -12);
  EXPECT_EQ(list.root().member("yes").boolean(), true);
  EXPECT_EQ(list.root().member("no").boolean(), false);
  EXPECT_EQ(list.root().member("list").elements().size(), 3U);
  EXPECT_TRUE(list.root().member("none").data()->empty());
  EXPECT_EQ(list.root().member("one").data(), (std::vector<unsigned char>{0xFF}));
  EXPECT_EQ(list.root().member("two").data(), (std::vector<unsigned char>{0xB8, 0x0B}));
  EXPECT_EQ(list.root().member("four").data(), (std::vector<unsigned char>{1, 2, 3, 4}));
}

HPMPort portSeenAs(const TypecPort& port, const UsbTopology& usb = {}) {
  Machine machine;
  machine.typecPorts = {{1, port}};
  machine.usb = usb;
  return portControllersIn(decoded(portControllerDump(machine))).at(0);
}

const UsbTopology tiedPort{.devices = {}, .ports = {{{1, {1}}, {.connector = 1}}}};
const UsbTopology tiedDevice{.devices = {{{1, {1}}, {.name = "Drive"}}}, .ports = tiedPort.ports};

TEST(PortControllers, SayWhatAConnectionIsFor) {
  const TypecPartner plain{.productId = 7};
  const TypecPartner screen{.hasVideo = true};
  const struct {
    const char* name;
    TypecPort port;
    UsbTopology usb;
    std::string expected;
  } table[] = {
      {"nothing", {.role = PowerRole::source}, tiedPort, ""},
      {"adapter", {.role = PowerRole::sink, .partner = plain}, {}, "active charger"},
      {"phone", {.role = PowerRole::source, .partner = plain}, tiedPort, "active charge-only"},
      {"drive", {.role = PowerRole::source, .partner = plain}, tiedDevice, "active data"},
      {"powered dock", {.role = PowerRole::sink, .partner = plain}, tiedDevice, "active data"},
      {"screen", {.role = PowerRole::source, .partner = screen}, {}, "active video"},
      {"unknown data", {.role = PowerRole::source, .partner = plain}, {}, ""},
      {"unknown role", {.partner = plain}, tiedPort, ""},
  };
  for (const auto& row : table) {
    const HPMPort port = portSeenAs(row.port, row.usb);
    std::string text = port.connectionActive ? "active" : "";
    text += port.hasData ? " data" : "";
    text += port.hasVideo ? " video" : "";
    text += port.isCharger() ? " charger" : "";
    text += port.isChargeOnlyDevice() ? " charge-only" : "";
    EXPECT_EQ(text, row.expected) << row.name;
    EXPECT_EQ(port.portNumber, 2);
    EXPECT_FALSE(port.isMagSafe);
  }
}

TEST(PortControllers, TellCables) {
  EXPECT_EQ(portSeenAs({}).cableLabel(), std::nullopt);
  EXPECT_EQ(portSeenAs({.cable = TypecCable{}}).cableLabel(), std::nullopt);
  EXPECT_EQ(portSeenAs({.cable = TypecCable{.isActive = true}}).cableLabel(), "active cable");
  EXPECT_EQ(portSeenAs({.cable = TypecCable{.isActive = true, .isOptical = true}}).cableLabel(),
            "optical cable");
}

TEST(PortControllers, CountUsb4AndThunderboltAsData) {
  for (const std::int64_t generation : {3, 4}) {
    Machine machine;
    machine.typecPorts = {{0, {.role = PowerRole::sink, .partner = TypecPartner{}}}};
    machine.thunderbolt = {.routers = {{{0, 0}, {}}, {{0, 1}, {.generation = generation}}},
                           .hostPorts = {{.host = {0, 0}, .number = 1, .connector = 0}}};
    EXPECT_TRUE(portControllersIn(decoded(portControllerDump(machine))).at(0).hasData);
  }
}

PowerSupply meter(const std::string& name) {
  return {.name = name,
          .type = "USB",
          .voltageNow = 9'000'000,
          .currentNow = 1'500'000,
          .currentMax = 2'000'000,
          .controller = "devices/platform/USBC000:00"};
}

TEST(PortPower, IsThatOfPortsThatFeedSomething) {
  const TypecPort feeding{.role = PowerRole::source,
                          .partner = TypecPartner{},
                          .controller = "devices/platform/USBC000:00"};
  TypecPort drawing = feeding;
  drawing.role = PowerRole::sink;
  TypecPort empty = feeding;
  empty.partner = std::nullopt;
  Machine machine;
  machine.typecPorts = {{0, drawing}, {1, empty}, {4, feeding}};
  machine.powerSupplies = {
      meter("ucsi-source-psy-USBC000:001"), meter("ucsi-source-psy-USBC000:002"),
      meter("ucsi-source-psy-USBC000:003"), meter("ucsi-source-psy-USBC000:004"),
      meter("ucsi-source-psy-USBC000:00x"), meter("another")};
  const auto power = portPowerOutIn(decoded(portPowerDump(machine)));
  EXPECT_EQ(power, (std::map<std::int64_t, PortPowerOut>{
                       {5, {.usedWatts = 13.5, .allocatedWatts = 18, .volts = 9, .amps = 1.5}}}));
}

TEST(PortPower, IsThatOfTheOnlyPortOfADriverWithOneSupply) {
  Machine machine;
  machine.typecPorts = {{0,
                         {.role = PowerRole::source,
                          .partner = TypecPartner{},
                          .controller = "devices/platform/USBC000:00"}}};
  machine.powerSupplies = {meter("tcpm-source-psy-2-0022")};
  EXPECT_EQ(portPowerOutIn(decoded(portPowerDump(machine))).size(), 1U);
  machine.powerSupplies[0].controller = "devices/elsewhere";
  EXPECT_TRUE(portPowerOutIn(decoded(portPowerDump(machine))).empty());
}

TEST(CurrentLimits, AreWhatPortsOfferAtFiveVolts) {
  Machine machine;
  machine.typecPorts = {{0, {.offeredMa = 3000}}, {1, {}}};
  EXPECT_EQ(portCurrentLimitsIn(decoded(deviceTreeDump(machine))),
            (std::map<std::int64_t, std::int64_t>{{1, 3000}}));
}

TEST(PowerSources, CountPortsFromZeroWithPlacesForMissingOnes) {
  Machine machine;
  machine.typecPorts = {
      {0, {.role = PowerRole::source, .isDualRole = true}},
      {2, {.role = PowerRole::sink, .partner = TypecPartner{.vendorId = 0x18D1, .productId = 9}}}};
  machine.powerSupplies = {{.type = "Mains", .isOnline = true}};
  const FedDetails details = fedDetailsIn(decoded(powerSourceDump(machine)));
  EXPECT_EQ(details.bestAdapterIndex, 2);
  EXPECT_EQ(
      details.ports,
      (std::vector<FedPortState>{
          {.index = 0, .isDualRole = true, .powerRole = 1},
          {.index = 2, .isConnected = true, .vendorID = 0x18D1, .productID = 9, .powerRole = 0}}));
}

} // namespace
} // namespace tamberline::sysfs
