#include "platform/linux_devices/sysfs_tree.h"
#include "platform/linux_devices/usb_reader.h"

#include <gtest/gtest.h>

namespace tamberline::sysfs {
namespace {

using namespace std::string_literals;

TEST(UsbAddress, IsReadFromTheKernelsNames) {
  const struct {
    const char* name;
    std::optional<UsbAddress> expected;
  } table[] = {
      {"usb1", UsbAddress{1}},
      {"usb12", UsbAddress{12}},
      {"1-4", UsbAddress{1, {4}}},
      {"2-1.10.3", UsbAddress{2, {1, 10, 3}}},
      {"1-4:1.0", std::nullopt}, // an interface
      {"1-0:1.0", std::nullopt},
      {"1-0", std::nullopt},
      {"usb", std::nullopt},
      {"usb0", std::nullopt},
      {"usb-1", std::nullopt},
      {"usbx", std::nullopt},
      {"1-", std::nullopt},
      {"1-4.", std::nullopt},
      {"1-+4", std::nullopt},
      {"-4", std::nullopt},
      {"1-99999999999", std::nullopt},
      {"1-1.1.1.1.1.1.1.1.1.1.1.1.1.1.1.1.1", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& row : table) {
    EXPECT_EQ(usbAddressOf(row.name), row.expected) << row.name;
    if (row.expected) {
      EXPECT_EQ(row.expected->name(), row.name);
    }
  }
}

TEST(UsbAddress, OfAPortIsThatOfWhatHangsOnIt) {
  EXPECT_EQ(usbAddressOfPort("usb1-port3"), (UsbAddress{1, {3}}));
  EXPECT_EQ(usbAddressOfPort("1-4-port2"), (UsbAddress{1, {4, 2}}));
  for (const char* name : {"usb1", "usb1-port", "usb1-port0", "x-port1", "-port1", "driver"}) {
    EXPECT_EQ(usbAddressOfPort(name), std::nullopt) << name;
  }
}

TEST(UsbDevices, AreReadWithWhatTheyTell) {
  const SysfsTree tree;
  tree.attributes("bus/usb/devices/1-2", {{"idVendor", "0781"},
                                          {"idProduct", "5567"},
                                          {"product", "Marble Stick"},
                                          {"manufacturer", "Sable"},
                                          {"serial", "4C53"},
                                          {"speed", "480"},
                                          {"bMaxPower", "224mA"},
                                          {"bDeviceClass", "00"}});
  const UsbDevice device = tree.read().usb.devices.at(UsbAddress{1, {2}});
  EXPECT_EQ(device.name, "Marble Stick");
  EXPECT_EQ(device.manufacturer, "Sable");
  EXPECT_EQ(device.serialNumber, "4C53");
  EXPECT_EQ(device.ratedMa, 224);
  EXPECT_FALSE(device.isHub);
  EXPECT_FALSE(device.isSuperSpeed());
}

TEST(UsbDevices, WithoutNamesHaveThoseOfTheDatabase) {
  const SysfsTree tree;
  tree.attributes("bus/usb/devices/1-1", {{"idVendor", "046d"}, {"idProduct", "c52b"}});
  tree.attributes("bus/usb/devices/1-2",
                  {{"idVendor", "046d"}, {"idProduct", "c52b"}, {"product", "Own Name"}});
  const auto devices = tree.read().usb.devices;
  EXPECT_EQ(devices.at(UsbAddress{1, {1}}).name, "Database Model");
  EXPECT_EQ(devices.at(UsbAddress{1, {1}}).manufacturer, "Database Vendor");
  EXPECT_EQ(devices.at(UsbAddress{1, {2}}).name, "Own Name");
  EXPECT_EQ(devices.at(UsbAddress{1, {2}}).manufacturer, "Database Vendor");
}

TEST(UsbDevices, ThatWentMeanwhileAreLeftOut) {
  const SysfsTree tree;
  tree.link("bus/usb/devices/1-1", "../../../devices/gone");
  std::filesystem::create_directories(tree.sysfs() / "bus/usb/devices/1-2");
  EXPECT_TRUE(tree.read().usb.devices.empty());
}

TEST(UsbPorts, AreReadFromTheirHubs) {
  const SysfsTree tree;
  const std::string hub = "bus/usb/devices/1-4/";
  tree.attributes("bus/usb/devices/1-4", {{"idVendor", "05e3"}, {"bDeviceClass", "09"}});
  tree.link(hub + "1-4:1.0/1-4-port1/peer", "../../../2-4/2-4:1.0/2-4-port1");
  tree.link(hub + "1-4:1.0/1-4-port2/connector", "../../../../platform/x/typec/port3");
  tree.attributes(hub + "1-4:1.0/1-4-port3/physical_location", {{"panel", "left"}, {"dock", "no"}});
  tree.attributes(hub + "1-4:1.0/1-4-port4/physical_location", {{"panel", "unknown"}});
  tree.attribute(hub + "1-4:1.0/7-1-port1/state", "another hub's");
  const auto ports = tree.read().usb.ports;
  ASSERT_EQ(ports.size(), 4U);
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 1}}).peer, (UsbAddress{2, {4, 1}}));
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 2}}).connector, 3);
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 3}}).location, "left///no/");
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 4}}).location, std::nullopt);
}

TEST(ContainerId, IsReadFromTheCapabilities) {
  const std::string head = "\x05\x0f\x1d\x00\x02"s;
  const std::string other = "\x07\x10\x02\x00\x00\x00\x00"s;
  const std::string container = "\x14\x10\x04\x00"s + "\x01\x23\x45\x67\x89\xAB\xCD\xEF"s +
                                "\x10\x32\x54\x76\x98\xBA\xDC\xFE"s;
  EXPECT_EQ(containerIdIn(head + other + container), "01234567-89AB-CDEF-1032-547698BADCFE");
  EXPECT_EQ(containerIdIn(head + other), std::nullopt);
  EXPECT_EQ(containerIdIn(head + container.substr(0, 19)), std::nullopt);
  EXPECT_EQ(containerIdIn(head + "\x14\x10\x04\x00"s + std::string(16, '\0')), std::nullopt);
  EXPECT_EQ(containerIdIn(head + "\x03\x10\x04"s), std::nullopt);
  EXPECT_EQ(containerIdIn("\x00\x00\x00"s), std::nullopt);
  EXPECT_EQ(containerIdIn(""), std::nullopt);
}

} // namespace
} // namespace tamberline::sysfs
