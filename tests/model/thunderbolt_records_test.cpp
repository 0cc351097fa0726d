#include "model/thunderbolt_records.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace tamberline {
namespace {

struct SpeedText {
  const char* text;
  std::int64_t gbps;
};

constexpr SpeedText speedTexts[] = {
    {"Up to 40 Gb/s", 40},
    {"Up to 20 Gb/s", 20},
    {"10 Gb/s", 10},
    {"5 Gb/s", 5},
    {"40", 40},
    {"Up to 80 Gb/s", 0},
    {"2.5 Gb/s", 5},
    {"Up to 120 Gb/s", 20},
    {"10 of 20 of 40", 40},
    {"5 of 10 of 20", 20},
    {"5 of 10", 10},
    {"", 0},
    {"unknown", 0},
    {"4 0 Gb/s", 0},
};

TEST(ThunderboltPort, ReadsItsSpeedFromTheReportsText) {
  for (const auto& [text, gbps] : speedTexts) {
    SCOPED_TRACE(text);
    EXPECT_EQ((ThunderboltPort{.status = "", .speed = text, .linkWidth = ""}.speedGbps()), gbps);
  }
}

TEST(ThunderboltDevice, ReadsItsUpstreamSpeedTheSameWay) {
  for (const auto& [text, gbps] : speedTexts) {
    SCOPED_TRACE(text);
    EXPECT_EQ(ThunderboltDevice{.upstreamSpeed = text}.upstreamSpeedGbps(), gbps);
  }
}

TEST(ThunderboltPort, IsConnectedByExactlyOneStatus) {
  const auto isConnected = [](const char* status) {
    return ThunderboltPort{.status = status, .speed = "", .linkWidth = ""}.isConnected();
  };
  EXPECT_TRUE(isConnected("receptacle_connected"));
  for (const char* status : {"", "receptacle_no_devices_connected", "Receptacle_connected",
                             "receptacle_connected ", "connected"}) {
    SCOPED_TRACE(status);
    EXPECT_FALSE(isConnected(status));
  }
}

TEST(ThunderboltLink, HasTwoLanesOnlyForOneToken) {
  EXPECT_EQ((ThunderboltPort{.status = "", .speed = "", .linkWidth = "0x2"}.laneCount()), 2);
  EXPECT_EQ(ThunderboltDevice{.upstreamWidth = "0x2"}.upstreamLanes(), 2);
  for (const char* width : {"", "0x1", "0x4", "2", "0X2", "0x20", " 0x2"}) {
    SCOPED_TRACE(width);
    EXPECT_EQ((ThunderboltPort{.status = "", .speed = "", .linkWidth = width}.laneCount()), 1);
    EXPECT_EQ(ThunderboltDevice{.upstreamWidth = width}.upstreamLanes(), 1);
  }
}

struct PortLink {
  const char* speed;
  const char* linkWidth;
  std::int64_t totalGbps;
  const char* badge;
};

TEST(ThunderboltPort, NamesTheSpeedOfOneLaneOnItsBadge) {
  constexpr PortLink links[] = {
      {"Up to 40 Gb/s", "0x2", 80, "40 Gb/s ×2"},
      {"20 Gb/s", "0x2", 40, "20 Gb/s ×2"},
      {"Up to 40 Gb/s", "0x1", 40, "40 Gb/s"},
      {"20 Gb/s", "", 20, "20 Gb/s"},
      {"20 Gb/s", "0x4", 20, "20 Gb/s"},
      {"5 Gb/s", "2", 5, "5 Gb/s"},
      {"", "", 0, ""},
      {"", "0x2", 0, ""},
      {"none", "0x2", 0, ""},
  };
  for (const auto& [speed, linkWidth, totalGbps, badge] : links) {
    SCOPED_TRACE(std::string(speed) + " over " + linkWidth);
    const ThunderboltPort port{.status = "", .speed = speed, .linkWidth = linkWidth};
    EXPECT_EQ(port.totalBandwidthGbps(), totalGbps);
    EXPECT_EQ(port.badgeText(), badge);
  }
}

struct UpstreamLink {
  const char* speed;
  const char* width;
  const char* label;
};

TEST(ThunderboltDevice, NamesTheSumOfItsLanesOnItsLabel) {
  constexpr UpstreamLink links[] = {
      {"20 Gb/s", "0x2", "20 Gb/s ×2 = 40 Gb/s"},
      {"Up to 40 Gb/s", "0x2", "40 Gb/s ×2 = 80 Gb/s"},
      {"20 Gb/s", "0x1", "20 Gb/s"},
      {"10 Gb/s", "", "10 Gb/s"},
      {"2.5 Gb/s", "0x2", "5 Gb/s ×2 = 10 Gb/s"},
      {"", "0x2", ""},
      {"unknown", "0x1", ""},
  };
  for (const auto& [speed, width, label] : links) {
    SCOPED_TRACE(std::string(speed) + " over " + width);
    const ThunderboltDevice device{.upstreamSpeed = speed, .upstreamWidth = width};
    EXPECT_EQ(device.upstreamLabel(), label);
  }
}

struct Mode {
  const char* token;
  const char* label;
};

TEST(ThunderboltDevice, HasShortLabelsForTheKnownModes) {
  constexpr Mode modes[] = {
      {"thunderbolt_three", "TB3"}, {"thunderbolt_four", "TB4"}, {"usb4_gen3x2", "USB4 40G"},
      {"usb4_gen2x2", "USB4 20G"},  {"usb4_gen2x1", "USB4 10G"},
  };
  for (const auto& [token, label] : modes) {
    EXPECT_EQ(ThunderboltDevice{.mode = token}.modeLabel(), label);
  }
}

TEST(ThunderboltDevice, DerivesALabelForAnyOtherMode) {
  constexpr Mode modes[] = {
      {"thunderbolt_five", "TBFive"},
      {"usb4_gen3x1", "Usb4 Gen3x1"},
      {"usb3", "Usb3"},
      {"THUNDERBOLT_THREE", "TBThree"},
      {"thunderbolt_three_thunderbolt_four", "TBThree TBFour"},
      {"thunderbolt", "Thunderbolt"},
      {"thunderbolt_", "TB"},
      {"usb4-gen3x2", "Usb4-gen3x2"},
      {"two  words", "Two  Words"},
      {"a__b", "A  B"},
      {"élan_mode", "Élan Mode"},
      {"", ""},
  };
  for (const auto& [token, label] : modes) {
    SCOPED_TRACE(token);
    EXPECT_EQ(ThunderboltDevice{.mode = token}.modeLabel(), label);
  }
}

TEST(ThunderboltBus, IsNamedByItsNumber) {
  EXPECT_EQ(ThunderboltBus{.busNumber = 0}.displayName(), "Thunderbolt Port 0");
  EXPECT_EQ(ThunderboltBus{.busNumber = 12}.displayName(), "Thunderbolt Port 12");
  EXPECT_EQ(ThunderboltBus{.busNumber = -1}.displayName(), "Thunderbolt Port -1");
}

TEST(ThunderboltBus, IsNamedInTheLanguageOfTheRun) {
  const LanguageScope scope(AppLanguage::es);
  EXPECT_EQ(ThunderboltBus{.busNumber = 2}.displayName(), "Puerto Thunderbolt 2");
}

TEST(ThunderboltRecords, GetANewIdentityAtEveryConstruction) {
  const ThunderboltBus bus{.busNumber = 1, .hostName = "Host", .uid = "u"};
  const ThunderboltBus sameBus{.busNumber = 1, .hostName = "Host", .uid = "u"};
  EXPECT_NE(bus.id, sameBus.id);
  const ThunderboltDevice device{.name = "Dock"};
  const ThunderboltDevice sameDevice{.name = "Dock"};
  EXPECT_NE(device.id, sameDevice.id);
}

TEST(ThunderboltRecords, CopyWithTheirWholeSubtree) {
  const ThunderboltBus bus{
      .connectedDevices = {
          ThunderboltDevice{.name = "Dock", .children = {ThunderboltDevice{.name = "Display"}}}}};
  const ThunderboltBus copy = bus;
  EXPECT_EQ(copy.id, bus.id);
  EXPECT_EQ(copy.connectedDevices[0].children[0].name, "Display");
}

} // namespace
} // namespace tamberline
