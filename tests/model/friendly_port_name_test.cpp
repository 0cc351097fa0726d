#include "model/usb_records.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tamberline {
namespace {

struct PortName {
  std::string_view rawName;
  std::string_view label;
};

TEST(FriendlyPortName, IsThePortsLabel) {
  constexpr PortName names[] = {
      {"Port-USB-C@2", "Thunderbolt Port 2"},
      {"Port-USB-C", "Thunderbolt Port"},
      {"USB-C@12", "Thunderbolt Port 12"},
      {"Port-MagSafe 3@1", "MagSafe"},
      {"MagSafe", "MagSafe"},
      {"Port-HDMI@1", "HDMI Port 1"},
      {"Port-HDMI", "HDMI Port"},
      {"Port-USB-A@1", "Port-USB-A@1"},
      {"Headphones", "Headphones"},
      {"usb-c@1", "usb-c@1"},
      {"@", "@"},
      {"", ""},
  };
  for (const auto& [rawName, label] : names) {
    SCOPED_TRACE(rawName);
    EXPECT_EQ(friendlyPortName(rawName), label);
  }
}

TEST(FriendlyPortName, TakesTheNumberAfterTheLastAt) {
  constexpr PortName names[] = {
      {"Port-USB-C@1@3", "Thunderbolt Port 3"}, {"Port-USB-C@@4", "Thunderbolt Port 4"},
      {"Port-USB-C@5@", "Thunderbolt Port 5"},  {"1@USB-C@007", "Thunderbolt Port 7"},
      {"Port-HDMI@1@2", "HDMI Port 2"},
  };
  for (const auto& [rawName, label] : names) {
    SCOPED_TRACE(rawName);
    EXPECT_EQ(friendlyPortName(rawName), label);
  }
}

TEST(FriendlyPortName, UsesZeroForAnInvalidNumber) {
  constexpr PortName names[] = {
      {"Port-USB-C@x", "Thunderbolt Port 0"},  {"Port-USB-C@2a", "Thunderbolt Port 0"},
      {"Port-USB-C@ 2", "Thunderbolt Port 0"}, {"2@Port-USB-C", "Thunderbolt Port 0"},
      {"Port-HDMI@x", "HDMI Port 0"},          {"USB-C@99999999999999999999", "Thunderbolt Port 0"},
  };
  for (const auto& [rawName, label] : names) {
    SCOPED_TRACE(rawName);
    EXPECT_EQ(friendlyPortName(rawName), label);
  }
}

TEST(FriendlyPortName, HasNoNumberWhenOnlyOnePieceIsLeft) {
  EXPECT_EQ(friendlyPortName("@Port-USB-C"), "Thunderbolt Port");
  EXPECT_EQ(friendlyPortName("Port-USB-C@"), "Thunderbolt Port");
  EXPECT_EQ(friendlyPortName("@@HDMI@@"), "HDMI Port");
}

TEST(FriendlyPortName, PrefersMagSafeToUsbCAndUsbCToHdmi) {
  EXPECT_EQ(friendlyPortName("HDMI USB-C MagSafe@2"), "MagSafe");
  EXPECT_EQ(friendlyPortName("HDMI USB-C@2"), "Thunderbolt Port 2");
}

TEST(FriendlyPortName, SpeaksTheLanguageOfTheRun) {
  const LanguageScope scope(AppLanguage::de);
  EXPECT_EQ(friendlyPortName("Port-USB-C@2"), "Thunderbolt-Port 2");
  EXPECT_EQ(friendlyPortName("Port-USB-C"), "Thunderbolt-Port");
  EXPECT_EQ(friendlyPortName("Port-HDMI@1"), "HDMI-Port 1");
  EXPECT_EQ(friendlyPortName("Port-HDMI"), "HDMI-Port");
}

} // namespace
} // namespace tamberline
