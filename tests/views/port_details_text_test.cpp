#include "support/language_scope.h"
#include "views/port_details_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

/// The lines about a port with these details.
std::vector<std::string> linesOf(const PortDetails& details,
                                 const std::optional<ChargingState>& charging = {}) {
  HPMPort port{.portNumber = 1};
  port.details = details;
  std::vector<std::string> lines;
  for (const DetailLine& line : portDetailLines(port, charging)) {
    lines.push_back(line.label());
  }
  return lines;
}

using Lines = std::vector<std::string>;

const std::vector<PowerOffer> everyKindOfOffer = {
    {.minVolts = 5, .maxVolts = 5, .amps = 3},
    {.minVolts = 20, .maxVolts = 20, .amps = 3.25, .isAgreed = true},
    {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 21, .amps = 3},
    {.kind = PowerOfferKind::battery, .minVolts = 5, .maxVolts = 20, .givenWatts = 27},
    {.kind = PowerOfferKind::variable, .minVolts = 8, .maxVolts = 16, .amps = 2}};

const PortDetails fullDetails{.offers = everyKindOfOffer,
                              .intake = {{.minVolts = 20, .maxVolts = 20, .amps = 5}},
                              .cable = CableRatings{.kind = CableKind::active,
                                                    .plug = CablePlug::captive,
                                                    .maxAmps = 5,
                                                    .maxVolts = 50,
                                                    .gbpsOfLane = 20},
                              .video = VideoUse{.lanes = 2, .isScreenPresent = false},
                              .overCurrentCount = 2,
                              .isFailing = true};

TEST(PortDetailLines, TellEverythingThatIsKnown) {
  EXPECT_EQ(
      linesOf(fullDetails),
      (Lines{"Offers: 5 V, 3 A · 20 V, 3.25 A (agreed) · 3.3–21 V, 3 A (PPS) · "
             "5–20 V, 27 W · 8–16 V, 2 A",
             "Computer takes at most: 100 W",
             "Cable: 5 A, 50 V, 40 Gb/s, active, fixed to the device",
             "Video: 2 lanes, no screen detected", "Something is plugged in but does not answer",
             "Shut-offs because of too much current: 2"}));
}

TEST(PortDetailLines, SpeakTheLanguageOfTheRun) {
  const PortDetails details{.offers = {everyKindOfOffer[1]},
                            .intake = fullDetails.intake,
                            .cable = CableRatings{.kind = CableKind::optical, .gbpsOfLane = 10}};
  const LanguageScope scope(AppLanguage::fr);
  EXPECT_EQ(linesOf(details),
            (Lines{"Offres : 20 V, 3.25 A (convenu)", "L’ordinateur accepte au plus : 100 W",
                   "Câble : 20 Gb/s, optique"}));
}

TEST(PortDetailLines, AreAbsentIfNothingIsKnown) {
  EXPECT_EQ(linesOf({}), Lines{});
  EXPECT_EQ(linesOf({.cable = CableRatings{.kind = CableKind::passive, .plug = CablePlug::typeC},
                     .video = VideoUse{.isScreenPresent = true},
                     .overCurrentCount = 0}),
            Lines{});
}

TEST(PortDetailLines, TellWhatTheComputerTakesOnlyBesideAnOffer) {
  EXPECT_EQ(linesOf({.intake = fullDetails.intake}), Lines{});
}

TEST(PortDetailLines, NameACableOfUsb2) {
  EXPECT_EQ(linesOf({.cable = CableRatings{.kind = CableKind::passive,
                                           .maxAmps = 3,
                                           .maxVolts = 20,
                                           .gbpsOfLane = 0.48}}),
            Lines{"Cable: 3 A, USB 2"});
}

TEST(PortDetailLines, TellTheOffersOfTheAdapterOnThePort) {
  const ChargingState charging{
      .adapter =
          AdapterState{.offers = {{.minVolts = 9, .maxVolts = 9, .amps = 3}}, .portNumber = 1}};
  EXPECT_EQ(linesOf({}, charging), Lines{"Offers: 9 V, 3 A"});
}

} // namespace
} // namespace tamberline
