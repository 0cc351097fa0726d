#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {
namespace {

using namespace std::string_literals;

TEST(TypecPorts, AreReadWithTheirRoleAndOffers) {
  const SysfsTree tree;
  tree.classDevice("typec", "platform/USBC000:00", "port2",
                   {{"power_role", "[source] sink"}, {"port_type", "[dual] source sink"}});
  const std::string offers =
      "devices/platform/USBC000:00/typec/port2/usb_power_delivery/source-capabilities/";
  tree.attributes(offers + "1:fixed_supply",
                  {{"voltage", "5000mV"}, {"maximum_current", "3000mA"}});
  tree.attributes(offers + "2:fixed_supply",
                  {{"voltage", "9000mV"}, {"maximum_current", "2000mA"}});
  const auto ports = tree.read().typecPorts;
  ASSERT_EQ(ports.size(), 1U);
  const TypecPort& port = ports.at(2);
  EXPECT_EQ(port.role, PowerRole::source);
  EXPECT_TRUE(port.isDualRole);
  EXPECT_EQ(port.offeredMa, 3000);
  EXPECT_EQ(port.controller, "devices/platform/USBC000:00");
  EXPECT_FALSE(port.partner);
  EXPECT_FALSE(port.cable);
}

TEST(TypecPorts, AreReadWithPartnerAndCable) {
  const SysfsTree tree;
  const std::string partner = "class/typec/port0-partner";
  tree.attribute("class/typec/port0/power_role", "source [sink]");
  tree.attributes(partner + "/identity", {{"id_header", "0x6c0018d1"}, {"product", "0x4ee10100"}});
  tree.attributes(partner + "/port0-partner.0", {{"svid", "8087"}, {"active", "yes"}});
  tree.attributes(partner + "/port0-partner.1", {{"svid", "ff01"}, {"active", "yes"}});
  tree.attributes(partner + "/usb_power_delivery/source-capabilities/3:fixed_supply",
                  {{"voltage", "20000mV"}, {"maximum_current", "4800mA"}});
  tree.attributes(partner + "/usb_power_delivery/source-capabilities/4:programmable_supply",
                  {{"voltage", "21000mV"}, {"maximum_current", "9000mA"}});
  tree.attribute("class/typec/port0-cable/type", "active");
  tree.attribute("class/typec/port0-cable/identity/product_type_vdo2", "0x00000400");
  const TypecPort port = tree.read().typecPorts.at(0);
  EXPECT_EQ(port.role, PowerRole::sink);
  ASSERT_TRUE(port.partner);
  EXPECT_EQ(port.partner->vendorId, 0x18D1);
  EXPECT_EQ(port.partner->productId, 0x4EE1);
  EXPECT_EQ(port.partner->video, PartnerVideo::active);
  EXPECT_TRUE(port.partner->knowsThunderbolt);
  EXPECT_TRUE(port.partner->hasAlternateModes);
  EXPECT_EQ(port.partner->offeredWatts, 96);
  ASSERT_TRUE(port.cable);
  EXPECT_TRUE(port.cable->isActive);
  EXPECT_TRUE(port.cable->isOptical);
}

TEST(TypecPorts, AreReadWithEveryKindOfOffer) {
  const SysfsTree tree;
  tree.attribute("class/typec/port0/power_operation_mode", "usb_power_delivery");
  const std::string sinks = "class/typec/port0/usb_power_delivery/sink-capabilities/";
  tree.attributes(sinks + "1:fixed_supply",
                  {{"voltage", "5000mV"}, {"operational_current", "3000mA"}});
  tree.attributes(sinks + "2:variable_supply", {{"minimum_voltage", "5000mV"},
                                                {"maximum_voltage", "20000mV"},
                                                {"operational_current", "5000mA"}});
  tree.attributes(sinks + "3:battery", {{"minimum_voltage", "5000mV"},
                                        {"maximum_voltage", "20000mV"},
                                        {"operational_power", "60000mW"}});
  const std::string sources = "class/typec/port0-partner/usb_power_delivery/source-capabilities/";
  tree.attributes(sources + "1:variable_supply", {{"minimum_voltage", "8000mV"},
                                                  {"maximum_voltage", "16000mV"},
                                                  {"maximum_current", "2000mA"}});
  tree.attributes(sources + "2:battery", {{"minimum_voltage", "8000mV"},
                                          {"maximum_voltage", "16000mV"},
                                          {"maximum_power", "27000mW"}});
  tree.attributes(sources + "3:programmable_supply", {{"minimum_voltage", "3300mV"},
                                                      {"maximum_voltage", "21000mV"},
                                                      {"maximum_current", "5000mA"}});
  tree.attributes(sources + "4:spr_adjustable_voltage_supply", {{"maximum_current", "5000mA"}});
  tree.attributes(sources + "5:fixed_supply", {{"voltage", "20000mV"}});
  const TypecPort port = tree.read().typecPorts.at(0);
  EXPECT_EQ(port.powerMode, "usb_power_delivery");
  EXPECT_EQ(port.intake, (std::vector<PowerOffer>{
                             {.minMillivolts = 5000, .maxMillivolts = 5000, .milliamperes = 3000},
                             {.kind = PowerOfferKind::variable,
                              .minMillivolts = 5000,
                              .maxMillivolts = 20'000,
                              .milliamperes = 5000},
                             {.kind = PowerOfferKind::battery,
                              .minMillivolts = 5000,
                              .maxMillivolts = 20'000,
                              .milliwatts = 60'000}}));
  EXPECT_EQ(port.partner->offers, (std::vector<PowerOffer>{{.kind = PowerOfferKind::variable,
                                                            .minMillivolts = 8000,
                                                            .maxMillivolts = 16'000,
                                                            .milliamperes = 2000},
                                                           {.kind = PowerOfferKind::battery,
                                                            .minMillivolts = 8000,
                                                            .maxMillivolts = 16'000,
                                                            .milliwatts = 27'000},
                                                           {.kind = PowerOfferKind::programmable,
                                                            .minMillivolts = 3300,
                                                            .maxMillivolts = 21'000,
                                                            .milliamperes = 5000}}));
  EXPECT_EQ(port.partner->offeredWatts, std::nullopt);
}

TEST(TypecPorts, ReadNoOfferThatCannotBe) {
  const SysfsTree tree;
  tree.attribute("class/typec/port0/power_role", "[source]");
  const std::string offer =
      "class/typec/port0-partner/usb_power_delivery/source-capabilities/1:fixed_supply";
  const auto isRead = [&](const std::string& voltage, const std::string& current) {
    tree.attributes(offer, {{"voltage", voltage}, {"maximum_current", current}});
    return !tree.read().typecPorts.at(0).partner->offers.empty();
  };
  EXPECT_TRUE(isRead("100000mV", "10000000mA"));
  EXPECT_FALSE(isRead("100001mV", "3000mA"));
  EXPECT_FALSE(isRead("0mV", "3000mA"));
  EXPECT_FALSE(isRead("-9223372036854775808mV", "3000mA"));
  EXPECT_FALSE(isRead("5000mV", "0mA"));
  EXPECT_FALSE(isRead("5000mV", "9223372036854775807mA"));
  EXPECT_FALSE(isRead("mV", "3000mA"));
}

TEST(TypecPorts, ReadNoMoreOffersThanThereCanBe) {
  const SysfsTree tree;
  tree.attribute("class/typec/port0/power_role", "[source]");
  for (int position = 1; position <= 40; ++position) {
    tree.attributes("class/typec/port0-partner/usb_power_delivery/source-capabilities/" +
                        std::to_string(position) + ":fixed_supply",
                    {{"voltage", "5000mV"}, {"maximum_current", "3000mA"}});
  }
  EXPECT_EQ(tree.read().typecPorts.at(0).partner->offers.size(), 16U);
}

TEST(TypecPorts, AreReadWithWhatTheCableSays) {
  const SysfsTree tree;
  const auto cableWith = [&](const std::map<std::string, std::string>& attributes) {
    tree.attribute("class/typec/port0/power_role", "[source]");
    tree.attributes("class/typec/port0-cable", attributes);
    return tree.read().typecPorts.at(0).cable.value();
  };
  TypecCable cable = cableWith({{"type", "passive"}, {"plug_type", "captive"}});
  EXPECT_TRUE(cable.isPassive);
  EXPECT_FALSE(cable.isActive);
  EXPECT_EQ(cable.plug, "captive");
  EXPECT_EQ(cable.identity, CableIdentity{});
  cable = cableWith({{"identity/id_header", "0x18002b1c"},
                     {"identity/product_type_vdo1", "0x11082042"},
                     {"usb_power_delivery_revision", "3.1"}});
  EXPECT_EQ(
      cable.identity,
      (CableIdentity{.maxMilliamperes = 5000, .maxMillivolts = 20'000, .megabitsOfLane = 10'000}));
  cable = cableWith({{"usb_power_delivery_revision", "2.0"}});
  EXPECT_EQ(cable.identity.maxMillivolts, std::nullopt);
  cable = cableWith({{"identity/product_type_vdo1", "garbage"}});
  EXPECT_EQ(cable.identity.megabitsOfLane, 480);
}

TEST(TypecPorts, AreReadWithTheLanesOfTheVideo) {
  const SysfsTree tree;
  tree.attribute("class/typec/port0/power_role", "[source]");
  const std::string mode = "class/typec/port0-partner/port0-partner.1";
  tree.attributes(mode, {{"svid", "ff01"}, {"active", "yes"}});
  const auto partner = [&] { return tree.read().typecPorts.at(0).partner.value(); };
  EXPECT_EQ(partner().videoLanes, std::nullopt);
  EXPECT_EQ(partner().isScreenPresent, std::nullopt);
  for (const auto& [pins, lanes] :
       std::map<std::string, std::optional<std::int64_t>>{{"[C] D", 4},
                                                          {"C [D] E", 2},
                                                          {"[E]", 4},
                                                          {"[F]", 2},
                                                          {"[A] B", std::nullopt},
                                                          {"C D", std::nullopt},
                                                          {"", std::nullopt}}) {
    tree.attribute(mode + "/displayport/pin_assignment", pins);
    EXPECT_EQ(partner().videoLanes, lanes) << pins;
  }
  tree.attribute(mode + "/displayport/hpd", "1");
  EXPECT_EQ(partner().isScreenPresent, true);
  tree.attribute(mode + "/displayport/hpd", "0");
  EXPECT_EQ(partner().isScreenPresent, false);
}

TEST(TypecPorts, TellPartnersThatAreNoDevicesApart) {
  const SysfsTree tree;
  for (const char* port : {"port0", "port1", "port2", "port3", "port4"}) {
    tree.attribute("class/typec/"s + port + "/power_role", "[source]");
  }
  tree.attributes("class/typec/port0-partner/port0-partner.0",
                  {{"svid", "ff01"}, {"active", "no"}});
  tree.attribute("class/typec/port1-partner/accessory_mode", "analog_audio");
  tree.attribute("class/typec/port2-partner/accessory_mode", "debug");
  tree.attribute("class/typec/port3-partner/number_of_alternate_modes", "2");
  tree.attribute("class/typec/port4-partner/accessory_mode", "none");
  const auto ports = tree.read().typecPorts;
  EXPECT_EQ(ports.at(0).partner->video, PartnerVideo::offered);
  EXPECT_EQ(ports.at(1).partner->accessory, PartnerAccessory::audio);
  EXPECT_EQ(ports.at(2).partner->accessory, PartnerAccessory::debug);
  EXPECT_TRUE(ports.at(3).partner->hasAlternateModes);
  EXPECT_EQ(ports.at(4).partner->accessory, PartnerAccessory::none);
  EXPECT_EQ(ports.at(4).partner->video, PartnerVideo::none);
  EXPECT_FALSE(ports.at(4).partner->hasAlternateModes);
}

TEST(TypecPorts, HavePassiveCablesWhoseWordsMeanSomethingElse) {
  const SysfsTree tree;
  tree.attribute("class/typec/port0/power_role", "[source]");
  tree.attribute("class/typec/port0-cable/type", "passive");
  tree.attribute("class/typec/port0-cable/identity/product_type_vdo2", "0x00000400");
  const TypecPort port = tree.read().typecPorts.at(0);
  EXPECT_FALSE(port.cable->isActive);
  EXPECT_FALSE(port.cable->isOptical);
}

} // namespace
} // namespace tamberline::sysfs
