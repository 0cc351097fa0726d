#include "platform/linux/sysfs/report/property_list_text.h"
#include "platform/linux/sysfs/report/registry_dumps.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <map>
#include <string>
#include <vector>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

/// As a scan decodes it.
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

std::vector<HPMPort> portsOf(const Machine& machine) {
  return portControllersIn(decoded(portControllerDump(machine)));
}

HPMPort portSeenAs(const TypecPort& port, const UsbTopology& usb = {}) {
  Machine machine;
  machine.typecPorts = {{1, port}};
  machine.usb = usb;
  machine.powerSupplies = {{.type = "Mains", .isOnline = true}};
  return portsOf(machine).at(0);
}

std::string textOf(const HPMPort& port) {
  constexpr std::array<const char*, 6> partners = {"",         " (audio)",  " (debug)",
                                                   " (video)", " (source)", " (unknown)"};
  std::string text = port.connectionActive ? "active" : "";
  text += port.hasData ? " data" : "";
  text += port.hasVideo ? " video" : "";
  text += port.isCharger() ? " charger" : "";
  text += port.isChargeOnlyDevice() ? " charge-only" : "";
  return text + partners.at(static_cast<std::size_t>(port.partner));
}

const UsbTopology tiedPort{.devices = {}, .ports = {{{1, {1}}, {.connector = 1}}}};
const UsbTopology tiedDevice{.devices = {{{1, {1}}, {.name = "Drive"}}}, .ports = tiedPort.ports};
const UsbTopology tiedBillboard{.devices = {{{1, {1}}, {.isBillboard = true}}},
                                .ports = tiedPort.ports};

TEST(PortControllers, SayWhatAConnectionIsFor) {
  const TypecPartner plain{.productId = 7};
  const TypecPartner screen{.video = PartnerVideo::active, .hasAlternateModes = true};
  const TypecPartner adapter{.video = PartnerVideo::offered, .hasAlternateModes = true};
  const TypecPartner headphones{.accessory = PartnerAccessory::audio};
  const TypecPartner probe{.accessory = PartnerAccessory::debug};
  const TypecPartner other{.hasAlternateModes = true};
  const struct {
    const char* name;
    TypecPort port;
    UsbTopology usb;
    std::string expected;
  } table[] = {
      {"nothing", {.role = PowerRole::source}, tiedPort, ""},
      {"adapter", {.role = PowerRole::sink, .partner = plain}, {}, "active charger (unknown)"},
      {"phone",
       {.role = PowerRole::source, .partner = plain},
       tiedPort,
       "active charge-only (unknown)"},
      {"drive", {.role = PowerRole::source, .partner = plain}, tiedDevice, "active data (unknown)"},
      {"screen", {.role = PowerRole::source, .partner = screen}, {}, "active video (video)"},
      {"screen that could not switch",
       {.role = PowerRole::source, .partner = screen},
       tiedBillboard,
       "active data (video)"},
      {"video adapter", {.role = PowerRole::source, .partner = adapter}, tiedPort, " (video)"},
      {"headphones", {.role = PowerRole::source, .partner = headphones}, tiedPort, " (audio)"},
      {"debug probe", {.role = PowerRole::source, .partner = probe}, tiedPort, " (debug)"},
      {"other modes", {.role = PowerRole::source, .partner = other}, tiedPort, " (unknown)"},
      {"unknown data", {.role = PowerRole::source, .partner = plain}, {}, " (unknown)"},
      {"unknown role", {.partner = plain}, tiedPort, " (unknown)"},
  };
  for (const auto& row : table) {
    const HPMPort port = portSeenAs(row.port, row.usb);
    EXPECT_EQ(textOf(port), row.expected) << row.name;
    EXPECT_EQ(port.portNumber, 2);
    EXPECT_FALSE(port.isMagSafe);
  }
}

TEST(PortControllers, ListADockThatPowersTheComputerAsAnAdapterToo) {
  Machine machine;
  machine.typecPorts = {{0, {.role = PowerRole::sink, .partner = TypecPartner{}}}};
  machine.usb = {.devices = {{{1, {1}}, {.name = "Hub"}}}, .ports = {{{1, {1}}, {.connector = 0}}}};
  machine.powerSupplies = {{.type = "Mains", .isOnline = true}};
  const std::vector<HPMPort> ports = portsOf(machine);
  ASSERT_EQ(ports.size(), 2U);
  EXPECT_EQ(textOf(ports[0]), "active data (unknown)");
  EXPECT_EQ(textOf(ports[1]), "active charger");
  EXPECT_EQ(ports[1].portNumber, 1);
}

PowerSupply contract(const std::string& name, std::int64_t volts, std::int64_t milliamperes) {
  return {.name = name,
          .type = "USB",
          .isOnline = true,
          .voltageNow = volts * 1'000'000,
          .voltageMax = volts * 1'000'000,
          .currentNow = milliamperes * 1000,
          .currentMax = milliamperes * 1000,
          .controller = "devices/platform/USBC000:00"};
}

TEST(PortControllers, TakeOneAdapterOfSeveral) {
  const TypecPort sink{.role = PowerRole::sink,
                       .partner = TypecPartner{},
                       .controller = "devices/platform/USBC000:00"};
  Machine machine;
  machine.typecPorts = {{0, sink}, {1, sink}};
  machine.powerSupplies = {contract("ucsi-source-psy-USBC000:001", 5, 3000),
                           contract("ucsi-source-psy-USBC000:002", 20, 5000)};
  const std::vector<HPMPort> ports = portsOf(machine);
  EXPECT_EQ(textOf(ports.at(0)), " (source)");
  EXPECT_EQ(textOf(ports.at(1)), "active charger (unknown)");
}

TEST(PortControllers, KnowTheAdapterOfAChromebookByTheNumberOfItsPort) {
  const TypecPort sink{.role = PowerRole::sink, .partner = TypecPartner{}};
  const auto chargers = [&](const std::string& name) {
    Machine machine;
    machine.typecPorts = {{0, sink}, {2, sink}};
    machine.powerSupplies = {{.name = name, .type = "USB", .isOnline = true}};
    std::string numbers;
    for (const HPMPort& port : portsOf(machine)) {
      numbers += port.isCharger() ? std::to_string(port.portNumber) : "";
    }
    return numbers;
  };
  EXPECT_EQ(chargers("CROS_USBPD_CHARGER2"), "3");
  // Ports that do not exist; then the first one that takes power.
  for (const char* number : {"1", "65538", "4294967298", "-2", "x", ""}) {
    EXPECT_EQ(chargers(std::string("CROS_USBPD_CHARGER") + number), "1") << number;
  }
}

TEST(PortControllers, TellWhatWasAgreedOn) {
  TypecPort port{.role = PowerRole::sink,
                 .partner = TypecPartner{},
                 .controller = "devices/platform/USBC000:00"};
  PowerSupply supply = contract("ucsi-source-psy-USBC000:001", 20, 3250);
  const auto agreed = [&] {
    Machine machine;
    machine.typecPorts = {{0, port}};
    machine.powerSupplies = {supply};
    return portsOf(machine).at(0).agreedPower;
  };
  EXPECT_EQ(agreed(), (AgreedPower{.volts = 20, .amps = 3.25}));
  supply.isOnline = false; // the state for a port that gives power
  EXPECT_EQ(agreed(), std::nullopt);
  port.role = PowerRole::source;
  EXPECT_EQ(agreed(), (AgreedPower{.volts = 20, .amps = 3.25}));
  supply.currentNow = 100'000; // the default current
  EXPECT_EQ(agreed(), std::nullopt);
  supply.currentNow = 0;
  EXPECT_EQ(agreed(), std::nullopt);
  supply = contract("a meter", 20, 3250);
  supply.isOnline = false;
  EXPECT_EQ(agreed(), std::nullopt);
  supply = contract("ucsi-source-psy-USBC000:001", 20, 3250);
  supply.isOnline = false;
  port.partner = std::nullopt;
  EXPECT_EQ(agreed(), std::nullopt);
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

TEST(PortPower, IsThatOfAMeterOnThePortThatFeedsSomething) {
  const TypecPort feeding{.role = PowerRole::source,
                          .partner = TypecPartner{},
                          .controller = "devices/platform/USBC000:00"};
  const auto powerOn = [](const TypecPort& port, const PowerSupply& supply) {
    Machine machine;
    machine.typecPorts = {{4, port}};
    machine.powerSupplies = {supply};
    return portPowerOutIn(decoded(portPowerDump(machine)));
  };
  EXPECT_EQ(powerOn(feeding, meter("a meter")),
            (std::map<std::int64_t, PortPowerOut>{
                {5, {.usedWatts = 13.5, .allocatedWatts = 18, .volts = 9, .amps = 1.5}}}));
  TypecPort drawing = feeding;
  drawing.role = PowerRole::sink;
  EXPECT_TRUE(powerOn(drawing, meter("a meter")).empty());
  TypecPort empty = feeding;
  empty.partner = std::nullopt;
  EXPECT_TRUE(powerOn(empty, meter("a meter")).empty());
  PowerSupply elsewhere = meter("a meter");
  elsewhere.controller = "devices/elsewhere";
  EXPECT_TRUE(powerOn(feeding, elsewhere).empty());
}

TEST(PortPower, IsNotWhatWasAgreedOn) {
  Machine machine;
  machine.typecPorts = {{0,
                         {.role = PowerRole::source,
                          .partner = TypecPartner{},
                          .controller = "devices/platform/USBC000:00"}}};
  for (const char* name : {"ucsi-source-psy-USBC000:001", "tcpm-source-psy-2-0022"}) {
    machine.powerSupplies = {meter(name)};
    EXPECT_TRUE(portPowerOutIn(decoded(portPowerDump(machine))).empty()) << name;
  }
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

/// Of the devices at the addresses, in that order.
std::vector<USBAbility> abilitiesOf(const std::map<UsbAddress, UsbDevice>& devices,
                                    const std::map<UsbAddress, UsbPort>& ports = {}) {
  Machine machine;
  machine.usb = {.devices = devices, .ports = ports};
  const json dump = usbHostDeviceDump(machine);
  const USBAbilities found = usbAbilitiesIn(decoded(dump));
  std::vector<USBAbility> abilities;
  for (const json& entry : dump) {
    abilities.push_back(
        found.find(entry.at("locationID").get<std::int64_t>()).value_or(USBAbility()));
  }
  return abilities;
}

TEST(UsbHostDevices, TellWhatTheyCanDo) {
  const UsbDevice drive{.megabitsPerSecond = "480",
                        .usbVersion = 0x0210,
                        .capabilities = UsbCapabilities{.provenMbps = 10'000, .limitMbps = 20'000},
                        .isAuthorized = false};
  EXPECT_EQ(abilitiesOf({{{1, {}}, {.megabitsPerSecond = "480"}}, {{1, {1}}, drive}}),
            (std::vector<USBAbility>{{.provenGbps = 10,
                                      .limitGbps = 20,
                                      .usbVersion = 0x0210,
                                      .linkGbps = 0.48,
                                      .isAuthorized = false}}));
  EXPECT_EQ(abilitiesOf({{{1, {1}}, {.megabitsPerSecond = "1.5"}}}),
            (std::vector<USBAbility>{{.provenGbps = 0.0015, .linkGbps = 0.0015}}));
  for (const char* speed : {"", "unknown", "-480", "9999999"}) {
    EXPECT_EQ(abilitiesOf({{{1, {1}}, {.megabitsPerSecond = speed}}}),
              (std::vector<USBAbility>{{}}))
        << speed;
  }
}

TEST(UsbHostDevices, DoNotBlameTheUsb2HalfOfAHub) {
  const UsbDevice slow{.vendorId = "05e3",
                       .megabitsPerSecond = "480",
                       .isHub = true,
                       .capabilities = UsbCapabilities{.provenMbps = 5000, .limitMbps = 5000}};
  UsbDevice fast = slow;
  fast.megabitsPerSecond = "5000";
  const USBAbility half{.provenGbps = 0.48, .limitGbps = 0.48, .linkGbps = 0.48};
  const USBAbility alone{.provenGbps = 5, .limitGbps = 5, .linkGbps = 0.48};
  const USBAbility unknown{.provenGbps = 0.48, .linkGbps = 0.48};
  EXPECT_EQ(abilitiesOf({{{1, {1}}, slow}}).at(0), alone);
  EXPECT_EQ(
      abilitiesOf({{{1, {1}}, slow}, {{2, {1}}, fast}}, {{{1, {1}}, {.peer = UsbAddress{2, {1}}}}})
          .at(0),
      half);
  EXPECT_EQ(abilitiesOf({{{1, {1}}, slow}, {{2, {1}}, fast}}).at(0), unknown);
  fast.vendorId = "2109";
  EXPECT_EQ(abilitiesOf({{{1, {1}}, slow}, {{2, {1}}, fast}}).at(0), alone);
  EXPECT_EQ(abilitiesOf({{{1, {1}}, slow}, {{2, {}}, fast}}).at(0), alone);
}

} // namespace
} // namespace tamberline::sysfs
