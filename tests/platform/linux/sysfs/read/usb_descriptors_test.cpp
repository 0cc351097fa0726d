#include "platform/linux/sysfs/read/usb_descriptors.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {
namespace {

using namespace std::string_literals;

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

std::string littleEndian(unsigned number) {
  return {static_cast<char>(number & 0xFFU), static_cast<char>(number >> 8U)};
}

/// A BOS descriptor with these capabilities.
std::string bos(const std::vector<std::string>& capabilities) {
  std::string all;
  for (const std::string& capability : capabilities) {
    all += capability;
  }
  return "\x05\x0f"s + littleEndian(static_cast<unsigned>(5 + all.size())) +
         static_cast<char>(capabilities.size()) + all;
}

const std::string usb2Extension = "\x07\x10\x02\x06\x00\x00\x00"s;

std::string superSpeed(unsigned speeds) {
  return "\x0a\x10\x03\x00"s + littleEndian(speeds) + "\x01\x0a\xff\x07"s;
}

/// One sublink speed: `unit` is 3 for Gb/s, 2 for Mb/s, 1 for kb/s.
std::string sublink(unsigned unit, unsigned number) {
  return std::string(1, static_cast<char>(unit << 4U)) + "\x40"s + littleEndian(number);
}

/// `count` is that in the descriptor, which may lie.
std::string superSpeedPlus(const std::string& sublinks, unsigned count) {
  return std::string(1, static_cast<char>(12 + sublinks.size())) + "\x10\x0a\x00"s +
         static_cast<char>(count - 1) + "\x00\x00\x00\x01\x11\x00\x00"s + sublinks;
}

struct CapabilityCase {
  const char* name;
  std::string descriptors;
  std::optional<UsbCapabilities> capabilities;
};

TEST(UsbCapabilities, AreReadFromTheirDescriptors) {
  const std::string tenGbps = superSpeedPlus(sublink(3, 10), 1);
  const std::vector<CapabilityCase> cases = {
      {"USB 2 only", bos({usb2Extension}), UsbCapabilities{.limitMbps = 480}},
      {"no capability", bos({}), UsbCapabilities{.limitMbps = 480}},
      {"SuperSpeed", bos({usb2Extension, superSpeed(0x0E)}),
       UsbCapabilities{.provenMbps = 5000, .limitMbps = 5000}},
      {"SuperSpeed without 5 Gb/s", bos({superSpeed(0x06)}), UsbCapabilities{.limitMbps = 480}},
      {"SuperSpeedPlus", bos({usb2Extension, superSpeed(0x0E), tenGbps}),
       UsbCapabilities{.provenMbps = 10'000}},
      {"the fastest of several speeds",
       bos({superSpeed(0x0E), superSpeedPlus(sublink(3, 5) + sublink(3, 20) + sublink(2, 100), 3)}),
       UsbCapabilities{.provenMbps = 20'000}},
      {"a speed in Mb/s", bos({superSpeedPlus(sublink(2, 5000), 1)}),
       UsbCapabilities{.provenMbps = 5000}},
      {"a speed in kb/s", bos({superSpeedPlus(sublink(1, 65535), 1)}), UsbCapabilities{}},
      {"a speed that nothing has", bos({superSpeedPlus(sublink(3, 65535), 1)}),
       UsbCapabilities{.provenMbps = 100'000}},
      {"fewer speeds than it says", bos({superSpeedPlus(sublink(3, 10), 32)}),
       UsbCapabilities{.provenMbps = 10'000}},
      {"more speeds than it says", bos({superSpeedPlus(sublink(3, 10) + sublink(3, 40), 1)}),
       UsbCapabilities{.provenMbps = 10'000}},
      {"SuperSpeedPlus that is cut off", bos({"\x05\x10\x0a\x00\x00"s}), UsbCapabilities{}},
      {"SuperSpeed that is cut off", bos({"\x05\x10\x03\x00\x08"s}),
       UsbCapabilities{.limitMbps = 480}},
      {"an unfinished list", bos({usb2Extension, superSpeed(0x0E)}).substr(0, 20),
       UsbCapabilities{}},
      {"an unfinished list that has the speed",
       bos({superSpeed(0x0E), usb2Extension}).substr(0, 18), UsbCapabilities{.provenMbps = 5000}},
      {"bytes behind the list", bos({usb2Extension}) + "x", UsbCapabilities{}},
      {"fewer capabilities than it says", "\x05\x0f\x0c\x00\x02"s + usb2Extension,
       UsbCapabilities{}},
      {"a capability without a type", bos({"\x02\x10"s}), UsbCapabilities{.limitMbps = 480}},
      {"another descriptor between", bos({"\x03\x24\x03"s}), UsbCapabilities{.limitMbps = 480}},
      {"no header", usb2Extension, std::nullopt},
      {"half a header", "\x05\x0f\x05"s, std::nullopt},
      {"a short header", "\x04\x0f\x04\x00"s, std::nullopt},
      {"zeros", std::string(64, '\0'), std::nullopt},
      {"nothing", "", std::nullopt},
  };
  for (const CapabilityCase& one : cases) {
    EXPECT_EQ(capabilitiesIn(one.descriptors), one.capabilities) << one.name;
  }
}

TEST(UsbVersion, IsReadFromTheDeviceDescriptor) {
  const std::string rest = std::string(14, '\0');
  EXPECT_EQ(usbVersionIn("\x12\x01\x10\x02"s + rest), 0x0210);
  EXPECT_EQ(usbVersionIn("\x12\x01\xff\xff"s + rest), 0xFFFF);
  EXPECT_EQ(usbVersionIn("\x12\x02\x10\x02"s + rest), std::nullopt);
  EXPECT_EQ(usbVersionIn("\x12\x01\x10\x02"s), std::nullopt);
  EXPECT_EQ(usbVersionIn("\x04\x01\x10\x02"s), std::nullopt);
  EXPECT_EQ(usbVersionIn(""), std::nullopt);
}

TEST(RatedCurrent, IsThatOfTheConfigurationInUse) {
  const std::string device = "\x12\x01"s + std::string(16, '\0');
  const std::string first = "\x09\x02\x09\x00\x01\x01\x00\x80\xfa"s;
  const std::string second = "\x09\x02\x09\x00\x01\x02\x00\x80\x70"s;
  const std::string all = device + first + second;
  EXPECT_EQ(ratedMaIn(all, 1, /*isSuperSpeed=*/false), 500);
  EXPECT_EQ(ratedMaIn(all, 2, /*isSuperSpeed=*/false), 224);
  EXPECT_EQ(ratedMaIn(all, 2, /*isSuperSpeed=*/true), 896);
  EXPECT_EQ(ratedMaIn(all, 3, /*isSuperSpeed=*/false), std::nullopt);
  EXPECT_EQ(ratedMaIn(device + first.substr(0, 8), 1, false), std::nullopt);
  EXPECT_EQ(ratedMaIn(device + "\x00"s + first, 1, false), std::nullopt);
  EXPECT_EQ(ratedMaIn("", 1, false), std::nullopt);
}

} // namespace
} // namespace tamberline::sysfs
