#include "answers/device_roles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

struct RoleCase {
  std::string name;
  DeviceRole role;
};

TEST(DeviceRoles, FollowFromWordsInTheName) {
  const std::vector<RoleCase> cases = {
      {"Extreme SSD", DeviceRole::drive},
      {"SATAWire", DeviceRole::drive},
      {"NVMe Enclosure", DeviceRole::drive},
      {"Flash Disk", DeviceRole::drive},
      {"USB 10/100/1000 LAN", DeviceRole::network},
      {"USB-C LAN", DeviceRole::network},
      {"Gigabit Adapter", DeviceRole::network},
      {"Atlantic Controller", DeviceRole::other},
      {"Keyboard", DeviceRole::quiet},
      {"USB Optical Mouse", DeviceRole::quiet},
      {"SD Card Reader Storage", DeviceRole::quiet},
      {"Audio Drive", DeviceRole::quiet},
      {"Joystick", DeviceRole::quiet},
      {"iPhone", DeviceRole::quiet},
      {"USB Billboard Device", DeviceRole::quiet},
      {"4-Port Hub", DeviceRole::hub},
      {"hub_device", DeviceRole::hub},
      {"Capture Card", DeviceRole::other},
      {"", DeviceRole::other},
  };
  for (const RoleCase& one : cases) {
    EXPECT_EQ(roleOf({.name = one.name}), one.role) << one.name;
  }
}

TEST(DeviceRoles, VolumesMakeADrive) {
  EXPECT_EQ(roleOf({.name = "Thing", .volumes = {{"Data", "/Volumes/Data"}}}), DeviceRole::drive);
}

TEST(DeviceRoles, VolumesInAReaderDoNot) {
  EXPECT_EQ(roleOf({.name = "Card Reader", .volumes = {{"Card", "/Volumes/Card"}}}),
            DeviceRole::quiet);
}

TEST(DeviceRoles, ChildrenMakeAHub) {
  EXPECT_EQ(roleOf({.name = "Display SSD", .children = {USBDevice{.name = "Camera"}}}),
            DeviceRole::hub);
}

TEST(DeviceRoles, DriveInAnEnclosureNeedsNoWord) {
  EXPECT_EQ(roleOf({.name = "990", .isTunneledDrive = true}), DeviceRole::drive);
}

} // namespace
} // namespace tamberline
