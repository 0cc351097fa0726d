#include "registry/decoded_list.h"
#include "registry/port_details.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

PortDetails detailsIn(const std::string& members) {
  const PropertyList list = decodedList("<dict>" + members + "</dict>");
  return portDetailsIn(list.root());
}

std::string integer(const std::string& key, const std::string& digits) {
  return "<key>" + key + "</key><integer>" + digits + "</integer>";
}

std::string text(const std::string& key, const std::string& value) {
  return "<key>" + key + "</key><string>" + value + "</string>";
}

std::string dictionary(const std::string& key, const std::string& members) {
  return "<key>" + key + "</key><dict>" + members + "</dict>";
}

std::string offer(const std::string& kind, const std::string& min, const std::string& max,
                  const std::string& rest) {
  return "<dict>" + text("Kind", kind) + integer("MinMillivolts", min) +
         integer("MaxMillivolts", max) + rest + "</dict>";
}

std::vector<PowerOffer> offersIn(const std::string& entries) {
  return detailsIn("<key>TamberlineOffers</key><array>" + entries + "</array>").offers;
}

TEST(PortDetails, ReadEveryKindOfOffer) {
  EXPECT_EQ(
      offersIn(offer("fixed", "20000", "20000",
                     integer("Milliamperes", "3250") + "<key>IsAgreed</key><true/>") +
               offer("variable", "8000", "16000", integer("Milliamperes", "2000")) +
               offer("battery", "8000", "16000", integer("Milliwatts", "27000")) +
               offer("programmable", "3300", "21000", integer("Milliamperes", "5000"))),
      (std::vector<PowerOffer>{
          {.minVolts = 20, .maxVolts = 20, .amps = 3.25, .isAgreed = true},
          {.kind = PowerOfferKind::variable, .minVolts = 8, .maxVolts = 16, .amps = 2},
          {.kind = PowerOfferKind::battery, .minVolts = 8, .maxVolts = 16, .givenWatts = 27},
          {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 21, .amps = 5}}));
}

TEST(PortDetails, LeaveOutOffersThatCannotBe) {
  const std::string amps = integer("Milliamperes", "3000");
  for (const std::string& entry :
       {offer("unknown", "5000", "5000", amps), offer("fixed", "0", "5000", amps),
        offer("fixed", "-5000", "5000", amps), offer("fixed", "9000", "5000", amps),
        offer("fixed", "5000", "100001", amps), offer("fixed", "5000", "5000", ""),
        offer("fixed", "5000", "5000", integer("Milliamperes", "100001")),
        offer("fixed", "5000", "5000", integer("Milliwatts", "15000")),
        offer("battery", "5000", "5000", amps), offer("fixed", "5000", "9223372036854775807", amps),
        std::string("<string>5</string>")}) {
    EXPECT_TRUE(offersIn(entry).empty()) << entry;
  }
}

TEST(PortDetails, LimitTheNumberOfOffers) {
  std::string entries;
  for (int index = 0; index < 100; ++index) {
    entries += offer("fixed", "5000", "5000", integer("Milliamperes", "3000"));
  }
  EXPECT_EQ(offersIn(entries).size(), 16U);
}

TEST(PortDetails, ReadWhatThePortTakes) {
  EXPECT_EQ(detailsIn("<key>TamberlineIntake</key><array>" +
                      offer("fixed", "20000", "20000", integer("Milliamperes", "5000")) +
                      "</array>")
                .intake,
            (std::vector<PowerOffer>{{.minVolts = 20, .maxVolts = 20, .amps = 5}}));
}

TEST(PortDetails, ReadTheWordsOfThePowerMode) {
  for (const auto& [word, mode] :
       {std::pair<const char*, std::optional<PowerMode>>{"default", PowerMode::usbDefault},
        {"1.5A", PowerMode::onePointFiveAmps},
        {"3.0A", PowerMode::threeAmps},
        {"usb_power_delivery", PowerMode::powerDelivery},
        {"5.0A", std::nullopt},
        {"", std::nullopt}}) {
    EXPECT_EQ(detailsIn(text("TamberlinePowerMode", word)).powerMode, mode) << word;
  }
  EXPECT_FALSE(detailsIn(integer("TamberlinePowerMode", "3")).powerMode);
}

TEST(PortDetails, ReadTheRatingsOfACable) {
  EXPECT_EQ(
      detailsIn(dictionary("TamberlineCable", text("Kind", "active") + text("Plug", "captive") +
                                                  integer("Milliamperes", "5000") +
                                                  integer("Millivolts", "50000") +
                                                  integer("MegabitsOfLane", "20000")))
          .cable,
      (CableRatings{.kind = CableKind::active,
                    .plug = CablePlug::captive,
                    .maxAmps = 5,
                    .maxVolts = 50,
                    .gbpsOfLane = 20}));
  const auto kindOf = [](const char* word) {
    return detailsIn(dictionary("TamberlineCable", text("Kind", word) + text("Plug", "type-c")))
        .cable.value()
        .kind;
  };
  EXPECT_EQ(kindOf("passive"), CableKind::passive);
  EXPECT_EQ(kindOf("optical"), CableKind::optical);
  EXPECT_EQ(kindOf("rope"), std::nullopt);
  const auto plugOf = [](const char* word) {
    return detailsIn(dictionary("TamberlineCable", text("Kind", "active") + text("Plug", word)))
        .cable.value()
        .plug;
  };
  EXPECT_EQ(plugOf("type-c"), CablePlug::typeC);
  EXPECT_EQ(plugOf("type-a"), CablePlug::typeA);
  EXPECT_EQ(plugOf("type-b"), CablePlug::typeB);
  EXPECT_EQ(plugOf("unknown"), std::nullopt);
}

TEST(PortDetails, HaveNoCableOfWhichNothingIsKnown) {
  for (const std::string& cable :
       {std::string(), dictionary("TamberlineCable", ""),
        dictionary("TamberlineCable", integer("Milliamperes", "-1")),
        dictionary("TamberlineCable", integer("MegabitsOfLane", "100001")),
        text("TamberlineCable", "active")}) {
    EXPECT_FALSE(detailsIn(cable).cable) << cable;
  }
}

TEST(PortDetails, ReadTheUseByVideo) {
  EXPECT_EQ(detailsIn(dictionary("TamberlineVideo", "")).video, VideoUse{});
  EXPECT_EQ(detailsIn(dictionary("TamberlineVideo",
                                 integer("Lanes", "4") + "<key>IsScreenPresent</key><false/>"))
                .video,
            (VideoUse{.lanes = 4, .isScreenPresent = false}));
  EXPECT_EQ(detailsIn(dictionary("TamberlineVideo", integer("Lanes", "5"))).video, VideoUse{});
  EXPECT_EQ(detailsIn(text("TamberlineVideo", "4")).video, std::nullopt);
}

TEST(PortDetails, ReadWhatFirmwareNoticed) {
  EXPECT_EQ(detailsIn(integer("TamberlineOverCurrentCount", "0")).overCurrentCount, 0);
  EXPECT_EQ(detailsIn(integer("TamberlineOverCurrentCount", "3")).overCurrentCount, 3);
  EXPECT_EQ(detailsIn(integer("TamberlineOverCurrentCount", "-3")).overCurrentCount, std::nullopt);
  EXPECT_TRUE(detailsIn("<key>TamberlineIsFailing</key><true/>").isFailing);
  EXPECT_FALSE(detailsIn("<key>TamberlineIsFailing</key><integer>1</integer>").isFailing);
}

TEST(PortDetails, AreEmptyOnAMac) {
  EXPECT_EQ(detailsIn(""), PortDetails{});
}

} // namespace
} // namespace tamberline
