#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

USBAbilities abilitiesIn(const std::string& content) {
  return usbAbilitiesIn(decodedList(content));
}

std::string entry(const std::string& members, const std::string& location = "7") {
  return "<dict><key>locationID</key><integer>" + location + "</integer>" + members + "</dict>";
}

std::string number(const std::string& key, const std::string& digits) {
  return "<key>" + key + "</key><integer>" + digits + "</integer>";
}

std::optional<USBAbility> abilityWith(const std::string& members) {
  return abilitiesIn("<array>" + entry(members) + "</array>").find(7);
}

struct AbilityCase {
  std::string members;
  std::optional<USBAbility> ability;
};

TEST(USBAbilities, FollowFromWhatADeviceSaysAboutItself) {
  const std::vector<AbilityCase> cases = {
      {number("bcdUSB", "256"), USBAbility{.limitGbps = 0.012, .usbVersion = 0x0100}},
      {number("bcdUSB", "272"), USBAbility{.limitGbps = 0.012, .usbVersion = 0x0110}},
      {number("bcdUSB", "512"), USBAbility{.limitGbps = 0.48, .usbVersion = 0x0200}},
      // These may be USB 3 devices that run at USB 2 speed:
      {number("bcdUSB", "513"), USBAbility{.usbVersion = 0x0201}},
      {number("bcdUSB", "528"), USBAbility{.usbVersion = 0x0210}},
      {number("bcdUSB", "768"), USBAbility{.provenGbps = 5, .usbVersion = 0x0300}},
      {number("bcdUSB", "800"), USBAbility{.provenGbps = 5, .usbVersion = 0x0320}},
      {number("bcdUSB", "65536"), std::nullopt},
      {number("bcdUSB", "-1"), std::nullopt},
      {"<key>bcdUSB</key><string>512</string>", std::nullopt},
      {number("USBSpeed", "0"), std::nullopt},
      {number("USBSpeed", "1"), USBAbility{.provenGbps = 0.012, .linkGbps = 0.012}},
      {number("USBSpeed", "2"), USBAbility{.provenGbps = 0.0015, .linkGbps = 0.0015}},
      {number("USBSpeed", "3"), USBAbility{.provenGbps = 0.48, .linkGbps = 0.48}},
      {number("USBSpeed", "4"), USBAbility{.provenGbps = 5, .linkGbps = 5}},
      {number("USBSpeed", "5"), USBAbility{.provenGbps = 10, .linkGbps = 10}},
      {number("USBSpeed", "6"), USBAbility{.provenGbps = 20, .linkGbps = 20}},
      {number("USBSpeed", "7"), std::nullopt},
      {number("USBSpeed", "5") + number("UsbLinkSpeed", "20000000000"),
       USBAbility{.provenGbps = 20, .linkGbps = 20}},
      {number("USBSpeed", "4") + number("UsbLinkSpeed", "0"),
       USBAbility{.provenGbps = 5, .linkGbps = 5}},
      {number("UsbLinkSpeed", "9223372036854775807"), std::nullopt},
      {number("TamberlineProvenMbps", "10000") + number("bcdUSB", "528"),
       USBAbility{.provenGbps = 10, .usbVersion = 0x0210}},
      {number("TamberlineProvenMbps", "10000") + number("bcdUSB", "800"),
       USBAbility{.provenGbps = 10, .usbVersion = 0x0320}},
      {number("TamberlineProvenMbps", "1000001"), std::nullopt},
      {number("TamberlineLimitMbps", "5000") + number("bcdUSB", "528"),
       USBAbility{.limitGbps = 5, .usbVersion = 0x0210}},
      {number("TamberlineLimitMbps", "0"), std::nullopt},
      // The link proves the opposite:
      {number("TamberlineLimitMbps", "480") + number("USBSpeed", "4"),
       USBAbility{.provenGbps = 5, .linkGbps = 5}},
      {number("bcdUSB", "512") + number("USBSpeed", "4"),
       USBAbility{.provenGbps = 5, .usbVersion = 0x0200, .linkGbps = 5}},
      {number("bcdUSB", "512") + number("USBSpeed", "3"),
       USBAbility{.provenGbps = 0.48, .limitGbps = 0.48, .usbVersion = 0x0200, .linkGbps = 0.48}},
      {"<key>TamberlineIsAuthorized</key><false/>", USBAbility{.isAuthorized = false}},
      {"<key>TamberlineIsAuthorized</key><true/>", USBAbility{.isAuthorized = true}},
      {"<key>TamberlineIsAuthorized</key><integer>0</integer>", std::nullopt},
      {"", std::nullopt},
  };
  for (const AbilityCase& one : cases) {
    EXPECT_EQ(abilityWith(one.members), one.ability) << one.members;
  }
}

TEST(USBAbilities, AreThoseOfTheFirstEntryOfALocation) {
  const USBAbilities abilities = abilitiesIn(
      "<array>" + entry("") + entry(number("bcdUSB", "512")) + entry(number("bcdUSB", "768")) +
      entry(number("bcdUSB", "256"), "8") + "</array>");
  EXPECT_EQ(abilities.size(), 2U);
  EXPECT_EQ(abilities.find(7).value().usbVersion, 0x0200);
  EXPECT_EQ(abilities.find(8).value().usbVersion, 0x0100);
  EXPECT_FALSE(abilities.find(9));
}

TEST(USBAbilities, AreOfNoDeviceWithoutALocation) {
  EXPECT_EQ(abilitiesIn("<array><dict>" + number("bcdUSB", "512") + "</dict></array>").size(), 0U);
}

} // namespace
} // namespace tamberline
