#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline::sysfs {
namespace {

const RouterAddress host{0, 0};

/// "0: 0-1 | usb 1-1", one line for each port: its routers and USB ports.
std::string portsText(const Machine& machine) {
  const PhysicalPorts ports = physicalPortsOf(machine);
  std::string text;
  for (const auto& [number, port] : ports.ports) {
    text += std::to_string(number) + ":" + (port.host ? " host" : "");
    for (const RouterAddress& router : port.routers) {
      text += " " + std::to_string(router.domain) + "-" + std::to_string(router.route);
    }
    for (const auto& [address, portOfCase] : ports.portOfUsbPort) {
      text += portOfCase == number ? " usb " + address.name() : "";
    }
    text += "\n";
  }
  return text;
}

TEST(RouterAddress, IsReadFromTheKernelsNames) {
  EXPECT_EQ(routerAddressOf("0-0"), (RouterAddress{0, 0}));
  EXPECT_EQ(routerAddressOf("1-30501"), (RouterAddress{1, 0x30501}));
  EXPECT_EQ(routerAddressOf("0-30501")->parent(), (RouterAddress{0, 0x501}));
  EXPECT_EQ(routerAddressOf("0-1")->parent(), host);
  EXPECT_EQ(routerAddressOf("0-ff01020304050607")->parent(), (RouterAddress{0, 0x01020304050607}));
  EXPECT_EQ(routerAddressOf("0-30501")->hostPort(), 1);
  for (const char* name : {"domain0", "0-", "-1", "0-1.1", "0-0:3.1", "0--1", "x-1", ""}) {
    EXPECT_EQ(routerAddressOf(name), std::nullopt) << name;
  }
}

TEST(PhysicalPorts, AreLinkedByConnectors) {
  Machine machine;
  machine.typecPorts = {{0, {}}, {1, {}}};
  machine.usb.ports = {{{1, {1}}, {.connector = 1}}, {{2, {1}}, {.connector = 1}}, {{1, {2}}, {}}};
  machine.thunderbolt = {.routers = {{host, {}}, {{0, 0x3}, {}}, {{0, 0x103}, {}}},
                         .hostPorts = {{.host = host, .number = 1, .connector = 0},
                                       {.host = host, .number = 3, .connector = 1}}};
  EXPECT_EQ(portsText(machine), "0: host\n"
                                "1: host 0-3 usb 1-1 usb 2-1\n");
}

TEST(PhysicalPorts, AreTiedByAPlaceThatOnlyOneOfThemIsAt) {
  Machine machine;
  machine.typecPorts = {{0, {.location = "left"}}, {1, {.location = "right"}}};
  machine.usb.ports = {{{1, {1}}, {.location = "left"}},
                       {{2, {1}}, {.location = "left"}},
                       {{1, {2}}, {.location = "back"}}};
  machine.thunderbolt.hostPorts = {{.host = host, .number = 1, .location = "right"}};
  EXPECT_EQ(portsText(machine), "0: usb 1-1 usb 2-1\n"
                                "1: host\n");
}

TEST(PhysicalPorts, AreNotGuessedWhereSeveralAreAtAPlace) {
  Machine twoConnectors;
  twoConnectors.typecPorts = {{0, {.location = "left"}}, {1, {.location = "left"}}};
  twoConnectors.usb.ports = {{{1, {1}}, {.location = "left"}}};
  EXPECT_EQ(portsText(twoConnectors), "0:\n1:\n");

  Machine twoUsbPorts;
  twoUsbPorts.typecPorts = {{0, {.location = "left"}}};
  twoUsbPorts.usb.ports = {{{1, {1}}, {.location = "left"}}, {{1, {2}}, {.location = "left"}}};
  EXPECT_EQ(portsText(twoUsbPorts), "0:\n");

  Machine twoUsb4Ports;
  twoUsb4Ports.typecPorts = {{0, {.location = "left"}}};
  twoUsb4Ports.thunderbolt.hostPorts = {{.host = host, .number = 1, .location = "left"},
                                        {.host = host, .number = 3, .location = "left"}};
  EXPECT_EQ(portsText(twoUsb4Ports), "0:\n1: host\n"); // one of them is the USB-C port
}

TEST(PhysicalPorts, OfUsb4WithoutUsbCPortsStandForThemselves) {
  Machine machine;
  machine.usb.ports = {{{1, {1}}, {.location = "back"}}};
  machine.thunderbolt = {.routers = {{host, {}}, {{0, 0x1}, {}}},
                         .hostPorts = {{.host = host, .number = 1, .location = "back"}}};
  EXPECT_EQ(portsText(machine), "0: host 0-1 usb 1-1\n");
}

TEST(PhysicalPorts, OfAHostThatDoesNotTellThemApartAreOneForEachRouter) {
  Machine machine;
  machine.thunderbolt.routers = {{host, {}}, {{0, 0x1}, {}}, {{0, 0x3}, {}}, {{1, 0}, {}}};
  EXPECT_EQ(portsText(machine), "0: host 0-1\n1: host 0-3\n2: host\n");
}

TEST(PhysicalPorts, OfUntiedHostsAreTheUsbCPortsWithAPartner) {
  Machine thunderbolt3;
  thunderbolt3.typecPorts = {{0, {}}, {1, {.partner = TypecPartner{}}}};
  thunderbolt3.thunderbolt.routers = {{host, {}}, {{0, 0x1}, {}}};
  EXPECT_EQ(portsText(thunderbolt3), "0:\n1: host 0-1\n");

  Machine twoHosts;
  twoHosts.typecPorts = {{0, {.partner = TypecPartner{}}}, {1, {}}};
  twoHosts.thunderbolt = {
      .routers = {{host, {}}, {{0, 0x2}, {}}, {{1, 0}, {}}},
      .hostPorts = {{.host = host, .number = 2}, {.host = {1, 0}, .number = 2}}};
  EXPECT_EQ(portsText(twoHosts), "0: host 0-2\n1:\n");
}

TEST(PhysicalPorts, OfUnlinkedHostsAreFoundByElimination) {
  const TypecPartner plain;
  const TypecPartner headphones{.accessory = PartnerAccessory::audio};
  const TypecPartner dock{.hasAlternateModes = true, .knowsThunderbolt = true};
  Machine machine;
  machine.thunderbolt.routers = {{host, {}}, {{0, 0x1}, {}}};
  machine.typecPorts = {{0, {.partner = headphones}}, {1, {.partner = plain}}};
  EXPECT_EQ(portsText(machine), "0:\n1: host 0-1\n");

  machine.typecPorts = {{0, {.partner = plain}}, {1, {.partner = plain}}};
  machine.usb = {.devices = {{{1, {1}}, {.name = "Stick"}}},
                 .ports = {{{1, {1}}, {.connector = 0}}}};
  EXPECT_EQ(portsText(machine), "0: usb 1-1\n1: host 0-1\n");

  machine.usb = {};
  machine.typecPorts = {{0, {.partner = dock}}, {1, {.partner = plain}}};
  EXPECT_EQ(portsText(machine), "0: host 0-1\n1:\n");

  machine.typecPorts = {{0, {.partner = plain}}, {1, {.partner = plain}}};
  EXPECT_EQ(portsText(machine), "0:\n1:\n2: host 0-1\n"); // unknown
}

TEST(PhysicalPorts, AreNotThoseThatAreWiredInside) {
  Machine machine;
  machine.typecPorts = {{0, {.location = "left"}}};
  machine.usb.ports = {{{1, {1}}, {.location = "left", .isHardwired = true}},
                       {{1, {2}}, {.connector = 0, .isHardwired = true}}};
  EXPECT_EQ(portsText(machine), "0:\n");
}

TEST(PhysicalPorts, KeepRoutersWhoseParentDisappeared) {
  Machine machine;
  machine.thunderbolt = {.routers = {{host, {}}, {{0, 0x20301}, {}}},
                         .hostPorts = {{.host = host, .number = 1}}};
  EXPECT_EQ(portsText(machine), "0: host 0-131841\n");
}

TEST(PhysicalPorts, ReachThroughHubs) {
  Machine machine;
  machine.typecPorts = {{5, {}}};
  machine.usb.ports = {{{1, {1, 2}}, {.connector = 5}}};
  const PhysicalPorts ports = physicalPortsOf(machine);
  EXPECT_EQ(ports.portOf({1, {1, 2, 3, 4}}), 5);
  EXPECT_EQ(ports.portOf({1, {1, 2}}), 5);
  EXPECT_EQ(ports.portOf({1, {1}}), std::nullopt);
  EXPECT_EQ(ports.portOf({1}), std::nullopt);
}

TEST(PhysicalPorts, IgnoreTiesToPortsThatAreNotThere) {
  Machine machine;
  machine.usb.ports = {{{1, {1}}, {.connector = 9}}};
  EXPECT_EQ(portsText(machine), "");
}

} // namespace
} // namespace tamberline::sysfs
