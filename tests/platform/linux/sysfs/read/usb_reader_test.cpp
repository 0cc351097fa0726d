#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <utility>

namespace tamberline::sysfs {
namespace {

using namespace std::string_literals;
using namespace std::chrono_literals;

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

TEST(UsbDevices, ThatDisappearedAreLeftOut) {
  const SysfsTree tree;
  tree.link("bus/usb/devices/1-1", "../../../devices/gone");
  std::filesystem::create_directories(tree.sysfs() / "bus/usb/devices/1-2");
  EXPECT_TRUE(tree.read().usb.devices.empty());
}

/// A device descriptor with configurations 1 and 2, rated at 50 and 112 units.
const std::string twoConfigurations =
    "\x12\x01"s + std::string(16, '\0') + "\x09\x02\x12\x00\x01\x01\x00\x80\x32"s + "\x09\x04"s +
    std::string(7, '\0') + "\x09\x02\x09\x00\x01\x02\x00\x80\x70"s;

TEST(UsbDevices, AreRatedAtTheirActiveConfiguration) {
  const SysfsTree tree;
  for (const auto& [name, speed] : {std::pair("1-1", "480"), {"2-1", "5000"}}) {
    const std::string folder = "bus/usb/devices/"s + name;
    tree.attributes(folder, {{"idVendor", "1234"}, {"speed", speed}, {"bMaxPower", "7mA"}});
    tree.bytes(folder + "/descriptors", twoConfigurations);
    tree.attribute(folder + "/" + name + ":2.0/bInterfaceClass", "08");
  }
  tree.attributes("bus/usb/devices/3-1", {{"idVendor", "1234"}, {"bMaxPower", "98mA"}});
  const auto devices = tree.read().usb.devices;
  EXPECT_EQ(devices.at(UsbAddress{1, {1}}).ratedMa, 224);
  EXPECT_EQ(devices.at(UsbAddress{2, {1}}).ratedMa, 896);
  EXPECT_EQ(devices.at(UsbAddress{3, {1}}).ratedMa, 98); // if there is no descriptor
}

TEST(RootHubs, AreNamedAfterTheirControllerWithoutBeingAsked) {
  const SysfsTree tree;
  const std::string controller = "devices/pci0000:00/0000:00:14.0";
  tree.attributes(controller + "/usb1", {{"idVendor", "1d6b"},
                                         {"speed", "480"},
                                         {"bDeviceClass", "09"},
                                         {"product", "what only the hub's lock gives"},
                                         {"serial", "and this"}});
  tree.link(controller + "/driver", "../../../bus/pci/drivers/xhci_hcd");
  tree.link("bus/usb/devices/usb1", "../../../" + controller + "/usb1");
  const UsbDevice hub = tree.read().usb.devices.at(UsbAddress{1});
  EXPECT_EQ(hub.name, "xHCI Host Controller");
  EXPECT_EQ(hub.serialNumber, "0000:00:14.0");
}

TEST(RootHubs, AreBuiltInUnlessSomethingThatCanBePulledBroughtThem) {
  const SysfsTree tree;
  const auto add = [&](const std::string& bus, const std::string& controller) {
    tree.attributes("devices/" + controller + "/" + bus,
                    {{"idVendor", "1d6b"}, {"bDeviceClass", "09"}});
    tree.link("bus/usb/devices/" + bus, "../../../devices/" + controller + "/" + bus);
  };
  add("usb1", "pci0000:00/0000:00:14.0");
  add("usb2", "pci0000:00/0000:00:08.1/0000:c5:00.3");
  add("usb3", "platform/xhci.0.auto");
  auto devices = tree.read().usb.devices;
  EXPECT_TRUE(devices.at(UsbAddress{1}).isOnBuiltInController);
  EXPECT_FALSE(devices.at(UsbAddress{2}).isOnBuiltInController); // unknown
  EXPECT_TRUE(devices.at(UsbAddress{3}).isOnBuiltInController);

  add("usb4", "pci0000:00/0000:00:07.0/0000:03:00.0/0000:04:02.0/0000:05:00.0");
  tree.attribute("devices/pci0000:00/0000:00:07.0/0000:03:00.0/removable", "removable");
  devices = tree.read().usb.devices;
  EXPECT_TRUE(devices.at(UsbAddress{2}).isOnBuiltInController);
  EXPECT_FALSE(devices.at(UsbAddress{4}).isOnBuiltInController);
}

TEST(UsbDevices, HaveUdevsDataWhileTheyDoNotAnswer) {
  const SysfsTree tree;
  const auto hub = "bus/usb/devices/1-1"s;
  tree.attributes(hub, {{"idVendor", "05e3"},
                        {"idProduct", "0610"},
                        {"dev", "189:1"},
                        {"speed", "480"},
                        {"bDeviceClass", "09"}});
  tree.attributes("bus/usb/devices/2-1", {{"idVendor", "046d"}, {"idProduct", "c52b"}});
  tree.udevData("c189:1", "E:ID_MODEL_ENC=Four\\x20Port\\x20Hub\nE:ID_VENDOR_ENC=Fen\n"
                          "E:ID_SERIAL_SHORT=F-4\n");
  std::promise<void> answer;
  UsbStringCache texts(0ms, [answered = answer.get_future().share()](const auto& folder) {
    answered.wait();
    return readUsbTexts(folder);
  });
  const auto devices = tree.read(texts).usb.devices;
  const UsbDevice& mute = devices.at(UsbAddress{1, {1}});
  EXPECT_EQ(mute.name + ", " + mute.manufacturer + ", " + mute.serialNumber,
            "Four Port Hub, Fen, F-4");
  EXPECT_EQ(mute.megabitsPerSecond, "480");
  EXPECT_EQ(devices.at(UsbAddress{2, {1}}).name, "Database Model");
  answer.set_value();
}

TEST(UsbPorts, AreReadFromTheirHubs) {
  const SysfsTree tree;
  const std::string hub = "bus/usb/devices/1-4/";
  tree.attributes("bus/usb/devices/1-4", {{"idVendor", "05e3"}, {"bDeviceClass", "09"}});
  tree.link(hub + "1-4:1.0/1-4-port1/peer", "../../../2-4/2-4:1.0/2-4-port1");
  tree.link(hub + "1-4:1.0/1-4-port2/connector", "../../../../platform/x/typec/port3");
  tree.attributes(hub + "1-4:1.0/1-4-port3/physical_location", {{"panel", "left"}, {"dock", "no"}});
  tree.attributes(hub + "1-4:1.0/1-4-port4/physical_location", {{"panel", "unknown"}});
  tree.attributes(hub + "1-4:1.0/1-4-port5/physical_location", {{"panel", "top"},
                                                                {"vertical_position", "upper"},
                                                                {"horizontal_position", "left"},
                                                                {"dock", "no"},
                                                                {"lid", "no"}});
  tree.attribute(hub + "1-4:1.0/1-4-port5/connect_type", "hardwired");
  tree.attribute(hub + "1-4:1.0/7-1-port1/state", "another hub's");
  const auto ports = tree.read().usb.ports;
  ASSERT_EQ(ports.size(), 5U);
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 1}}).peer, (UsbAddress{2, {4, 1}}));
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 2}}).connector, 3);
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 3}}).location, "left///no/");
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 4}}).location, std::nullopt);
  EXPECT_EQ(ports.at(UsbAddress{1, {4, 5}}).location, std::nullopt); // all zeros
  EXPECT_TRUE(ports.at(UsbAddress{1, {4, 5}}).isHardwired);
  EXPECT_FALSE(ports.at(UsbAddress{1, {4, 4}}).isHardwired);
}

} // namespace
} // namespace tamberline::sysfs
