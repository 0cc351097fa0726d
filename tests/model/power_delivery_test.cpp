#include "model/charging_state.h"
#include "model/power_delivery.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

struct OfferCase {
  std::string name;
  PowerOffer offer;
  double watts = 0;
};

TEST(PowerOffers, TellTheirMaxPower) {
  const std::vector<OfferCase> cases = {
      {"fixed", {.minVolts = 20, .maxVolts = 20, .amps = 3.25}, 65},
      {"variable, at its lowest voltage",
       {.kind = PowerOfferKind::variable, .minVolts = 5, .maxVolts = 20, .amps = 2},
       10},
      {"limited by watts",
       {.kind = PowerOfferKind::battery, .minVolts = 5, .maxVolts = 20, .givenWatts = 27},
       27},
      {"programmable to 5 V",
       {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 5.9, .amps = 3},
       15},
      {"programmable to 9 V",
       {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 11, .amps = 3},
       27},
      {"programmable to 15 V",
       {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 16, .amps = 3},
       45},
      {"programmable to 20 V",
       {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 21, .amps = 5},
       100},
      {"programmable below any nominal voltage",
       {.kind = PowerOfferKind::programmable, .minVolts = 3.3, .maxVolts = 4, .amps = 3},
       12},
      {"without a current", {.minVolts = 5, .maxVolts = 5}, 0},
  };
  for (const OfferCase& one : cases) {
    EXPECT_DOUBLE_EQ(one.offer.watts(), one.watts) << one.name;
  }
}

TEST(PowerOffers, BestIsTheOneWithMostWatts) {
  EXPECT_EQ(maxWattsOf({}), std::nullopt);
  EXPECT_EQ(maxWattsOf({{.minVolts = 9, .maxVolts = 9, .amps = 3},
                        {.minVolts = 20, .maxVolts = 20, .amps = 1},
                        {.minVolts = 5, .maxVolts = 5, .amps = 3}}),
            27);
}

TEST(CableRatings, TellPowerOnlyIfVoltageAndCurrentAreKnown) {
  EXPECT_EQ((CableRatings{.maxAmps = 5, .maxVolts = 50}.maxWatts()), 250);
  EXPECT_EQ((CableRatings{.maxAmps = 5}.maxWatts()), std::nullopt);
  EXPECT_EQ((CableRatings{.maxVolts = 20}.maxWatts()), std::nullopt);
}

TEST(CableRatings, TellTheSpeedThatTheCableIsSoldWith) {
  const auto sold = [](std::optional<double> gbpsOfLane) {
    return CableRatings{.gbpsOfLane = gbpsOfLane}.maxGbps();
  };
  EXPECT_EQ(sold({}), std::nullopt);
  EXPECT_EQ(sold(0.48), 0.48);
  EXPECT_EQ(sold(5), 5);
  EXPECT_EQ(sold(10), 20);
  EXPECT_EQ(sold(20), 40);
  EXPECT_EQ(sold(40), 80);
}

} // namespace
} // namespace tamberline
