#include "platform/linux/sysfs/read/usb_descriptors.h"

#include <gtest/gtest.h>

#include <string>

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
