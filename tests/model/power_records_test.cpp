#include "model/power_records.h"

#include <gtest/gtest.h>

#include <optional>

namespace tamberline {
namespace {

TEST(ChargerInfo, HasNoPortUntilOneIsFound) {
  const ChargerInfo charger{.name = "96W USB-C Power Adapter"};
  EXPECT_FALSE(charger.connectsViaUSBC);
  EXPECT_EQ(charger.portLabel, std::nullopt);
}

TEST(ChargerInfo, WattsAreAbsentUntilKnown) {
  EXPECT_EQ(ChargerInfo{}.ratedWatts, std::nullopt);
  EXPECT_EQ(ChargerInfo{}.currentWatts, std::nullopt);
}

TEST(FedPortState, HasPowerRoleOneUnlessToldOtherwise) {
  EXPECT_EQ(FedPortState{}.powerRole, 1);
}

TEST(HPMPort, HasNoAccessoryUnlessToldOtherwise) {
  EXPECT_EQ(HPMPort{}.accessoryID, -1);
}

} // namespace
} // namespace tamberline
