#include "model/usb_records.h"
#include "support/language_scope.h"
#include "support/sample_records.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {
namespace {

struct Speed {
  const char* token;
  double gbps;
  const char* shortLabel;
  const char* detailLabel;
};

TEST(UsbDevice, HasTheSpeedThatItsTokenNames) {
  constexpr Speed speeds[] = {
      {"super_speed_plus", 10.0, "10 Gb/s", "USB 3.2 Gen 2"},
      {"super_speed", 5.0, "5 Gb/s", "USB 3.2 Gen 1"},
      {"high_speed", 0.48, "480 Mb/s", "USB 2.0 Hi-Speed"},
      {"full_speed", 0.012, "12 Mb/s", "USB 1.1 Full-Speed"},
      {"low_speed", 0.0015, "1.5 Mb/s", "USB 1.0 Low-Speed"},
      {"", 0, "—", ""},
      {"super_speed_plus_by2", 0, "super_speed_plus_by2", ""},
      {"High_Speed", 0, "High_Speed", ""},
      {"high_speed ", 0, "high_speed ", ""},
      {"480 Mb/s", 0, "480 Mb/s", ""},
  };
  for (const auto& [token, gbps, shortLabel, detailLabel] : speeds) {
    SCOPED_TRACE(token);
    const USBDevice device{.speed = token};
    EXPECT_EQ(device.speedGbps(), gbps);
    EXPECT_EQ(device.speedShortLabel(), shortLabel);
    EXPECT_EQ(device.speedDetailLabel(), detailLabel);
  }
}

TEST(UsbPower, IsTheCurrentAtFiveVolts) {
  EXPECT_DOUBLE_EQ(usbWatts(0), 0);
  EXPECT_DOUBLE_EQ(usbWatts(1), 0.005);
  EXPECT_DOUBLE_EQ(usbWatts(900), 4.5);
  EXPECT_DOUBLE_EQ(usbWatts(3000), 15);
}

using Milliamperes = std::optional<std::int64_t>;
using Real = std::optional<double>;

struct Power {
  Milliamperes busPower;
  Milliamperes busPowerUsed;
  Real availableW;
  Real usedW;
  Real fraction;
};

void expectReal(const Real& actual, const Real& expected) {
  ASSERT_EQ(actual.has_value(), expected.has_value());
  if (expected) {
    EXPECT_DOUBLE_EQ(*actual, *expected);
  }
}

TEST(UsbDevice, ComparesItsDrawWithWhatThePortOffers) {
  constexpr std::nullopt_t none = std::nullopt;
  constexpr Power powers[] = {
      {500, 100, 2.5, 0.5, 0.2},      {900, 900, 4.5, 4.5, 1.0},    {500, 900, 2.5, 4.5, 1.0},
      {1, 0, 0.005, 0.0, 0.0},        {500, 0, 2.5, 0.0, 0.0},      {0, 100, none, 0.5, none},
      {-5, 100, none, 0.5, none},     {none, 100, none, 0.5, none}, {500, none, 2.5, none, none},
      {none, none, none, none, none},
  };
  for (const Power& power : powers) {
    SCOPED_TRACE(std::to_string(power.busPowerUsed.value_or(-99)) + " of " +
                 std::to_string(power.busPower.value_or(-99)) + " mA");
    const USBDevice device{.busPower = power.busPower, .busPowerUsed = power.busPowerUsed};
    expectReal(device.powerAvailableW(), power.availableW);
    expectReal(device.powerUsedW(), power.usedW);
    expectReal(device.powerFraction(), power.fraction);
  }
}

struct SpeedOnBus {
  const char* token;
  double busMaxGbps;
  double fraction;
};

TEST(UsbDevice, ComparesItsSpeedWithTheBusMaximum) {
  constexpr SpeedOnBus speeds[] = {
      {"high_speed", 10, 0.048},
      {"super_speed", 10, 0.5},
      {"super_speed_plus", 10, 1},
      {"super_speed_plus", 5, 1},
      {"full_speed", 0.48, 0.025},
      {"high_speed", 0.48, 1},
      {"super_speed", 0, 0},
      {"super_speed", -1, 0},
      {"", 10, 0},
      {"warp_speed", 10, 0},
      {"", 0, 0},
  };
  for (const auto& [token, busMaxGbps, fraction] : speeds) {
    SCOPED_TRACE(std::string(token) + " on " + std::to_string(busMaxGbps));
    EXPECT_DOUBLE_EQ(USBDevice{.speed = token}.speedFraction(busMaxGbps), fraction);
  }
}

struct NoteOnBus {
  const char* token;
  double busMaxGbps;
  const char* maximum;
};

TEST(UsbDevice, HasANoteWithTheTrueMaximumOfABusWithoutAName) {
  const USBDevice device{.speed = "super_speed_plus"};
  EXPECT_EQ(device.trueSpeedNote(20),
            "Port supports up to 20 Gb/s — device or cable is the bottleneck");
  EXPECT_EQ(device.trueSpeedNote(10), std::nullopt);
  EXPECT_EQ(USBDevice{.speed = "super_speed"}.trueSpeedNote(10),
            "Port supports up to 10 Gb/s — device or cable is the bottleneck");
}

TEST(UsbDevice, SlowerThanTheBusHasANoteThatNamesTheMaximum) {
  constexpr NoteOnBus notes[] = {
      {"high_speed", 10, "10 Gb/s"},    {"super_speed", 10, "10 Gb/s"},
      {"super_speed", 20, "10 Gb/s"},   {"low_speed", 10, "10 Gb/s"},
      {"high_speed", 9.99, "5 Gb/s"},   {"high_speed", 5, "5 Gb/s"},
      {"high_speed", 4.99, "480 Mb/s"}, {"full_speed", 0.48, "480 Mb/s"},
  };
  for (const auto& [token, busMaxGbps, maximum] : notes) {
    SCOPED_TRACE(std::string(token) + " on " + std::to_string(busMaxGbps));
    EXPECT_EQ(USBDevice{.speed = token}.speedNote(busMaxGbps),
              "Port supports up to " + std::string(maximum) +
                  " — device or cable is the bottleneck");
  }
}

TEST(UsbDevice, AtTheBusMaximumOrOfUnknownSpeedHasNoNote) {
  EXPECT_EQ(USBDevice{.speed = "super_speed_plus"}.speedNote(10), std::nullopt);
  EXPECT_EQ(USBDevice{.speed = "super_speed_plus"}.speedNote(5), std::nullopt);
  EXPECT_EQ(USBDevice{.speed = "high_speed"}.speedNote(0.48), std::nullopt);
  EXPECT_EQ(USBDevice{.speed = "high_speed"}.speedNote(0), std::nullopt);
  EXPECT_EQ(USBDevice{.speed = ""}.speedNote(10), std::nullopt);
  EXPECT_EQ(USBDevice{.speed = "warp_speed"}.speedNote(10), std::nullopt);
}

TEST(UsbDevice, WritesItsNoteInTheLanguageOfTheRun) {
  const LanguageScope scope(AppLanguage::de);
  EXPECT_EQ(USBDevice{.speed = "high_speed"}.speedNote(5),
            "Port unterstützt bis zu 5 Gb/s — Gerät oder Kabel ist der Engpass");
}

USBDevice deviceWithEveryField() {
  return USBDevice{.name = "Quarry SSD",
                   .vendorID = "0x1234",
                   .productID = "0x5678",
                   .speed = "super_speed_plus",
                   .manufacturer = "Quarry",
                   .serialNumber = "S1",
                   .busPower = 900,
                   .busPowerUsed = 896,
                   .containerID = "C1",
                   .physicalPort = 2,
                   .volumes = {{"Data", "/Volumes/Data"}},
                   .children = {usbDevice("old child")}};
}

TEST(UsbDevice, KeepsEveryOtherFieldWhenItsChildrenAreReplaced) {
  const USBDevice original = deviceWithEveryField();
  const USBDevice replaced = original.replacingChildren({usbDevice("a"), usbDevice("b")});
  EXPECT_EQ(replaced.name, original.name);
  EXPECT_EQ(replaced.vendorID, original.vendorID);
  EXPECT_EQ(replaced.productID, original.productID);
  EXPECT_EQ(replaced.speed, original.speed);
  EXPECT_EQ(replaced.manufacturer, original.manufacturer);
  EXPECT_EQ(replaced.serialNumber, original.serialNumber);
  EXPECT_EQ(replaced.busPower, original.busPower);
  EXPECT_EQ(replaced.busPowerUsed, original.busPowerUsed);
  EXPECT_EQ(replaced.containerID, original.containerID);
  EXPECT_EQ(replaced.physicalPort, original.physicalPort);
  EXPECT_EQ(replaced.volumes, original.volumes);
}

TEST(UsbDevice, GetsTheNewChildrenAndANewIdentity) {
  const USBDevice original = deviceWithEveryField();
  const USBDevice replaced = original.replacingChildren({usbDevice("a"), usbDevice("b")});
  ASSERT_EQ(replaced.children.size(), 2U);
  EXPECT_EQ(replaced.children[0].name, "a");
  EXPECT_EQ(replaced.children[1].name, "b");
  EXPECT_NE(replaced.id, original.id);
  EXPECT_NE(original.replacingChildren(original.children).id, original.id);
  EXPECT_TRUE(original.replacingChildren({}).children.empty());
  EXPECT_EQ(original.children[0].name, "old child");
}

TEST(UsbDevice, GetsANewIdentityAtEveryConstruction) {
  EXPECT_NE(usbDevice("Keyboard").id, usbDevice("Keyboard").id);
}

} // namespace
} // namespace tamberline
