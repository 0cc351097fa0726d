#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

#include <string>

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
