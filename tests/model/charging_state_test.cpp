#include "model/charging_state.h"

#include <gtest/gtest.h>

#include <vector>

namespace tamberline {
namespace {

/// A USB-C port through which power comes in.
HPMPort chargingPort(std::int64_t number) {
  return {.portNumber = number, .connectionActive = true};
}

ChargingState withPorts(const std::vector<HPMPort>& ports, ChargingState state) {
  addPortFacts(ports, state);
  return state;
}

TEST(ChargingReasons, AreFoundInAnyMask) {
  const std::int64_t limit = ChargingReasons::isHeldAtLimit;
  EXPECT_TRUE((ChargingReasons{.notCharging = limit | 4}.contains(limit)));
  EXPECT_TRUE((ChargingReasons{.slowCharging = limit}.contains(limit)));
  EXPECT_TRUE((ChargingReasons{.inhibited = limit}.contains(limit)));
  EXPECT_FALSE((ChargingReasons{.notCharging = 1, .inhibited = 0}.contains(limit)));
  EXPECT_FALSE(ChargingReasons{}.contains(limit));
}

TEST(ChargingState, GetsThePortOfTheAdapterIfItCanOnlyBeOne) {
  const auto portOf = [](const std::vector<HPMPort>& ports) {
    const ChargingState state = withPorts(
        ports, {.isExternalPowerConnected = true, .adapter = AdapterState{.ratedWatts = 70}});
    return state.adapter.value().portNumber;
  };
  HPMPort withData = chargingPort(1);
  withData.hasData = true;
  HPMPort magSafe = chargingPort(1);
  magSafe.isMagSafe = true;
  EXPECT_EQ(portOf({chargingPort(2)}), 2);
  EXPECT_EQ(portOf({withData, chargingPort(2)}), 2);
  EXPECT_EQ(portOf({withData}), std::nullopt);
  EXPECT_EQ(portOf({magSafe}), std::nullopt);
  EXPECT_EQ(portOf({magSafe, chargingPort(2)}), std::nullopt);
  EXPECT_EQ(portOf({chargingPort(1), chargingPort(2)}), std::nullopt);
  EXPECT_EQ(portOf({}), std::nullopt);
}

TEST(ChargingState, GetsNoAdapterOnBattery) {
  EXPECT_FALSE(withPorts({chargingPort(1)}, {.isExternalPowerConnected = false}).adapter);
  EXPECT_FALSE(withPorts({chargingPort(1)}, {}).adapter);
}

TEST(ChargingState, GetsOffersAndContractOfThePortUnlessTheyAreKnown) {
  const PowerOffer atPort{.minVolts = 9, .maxVolts = 9, .amps = 3};
  const PowerOffer known{.minVolts = 20, .maxVolts = 20, .amps = 5};
  HPMPort port = chargingPort(1);
  port.agreedPower = AgreedPower{9, 3};
  port.details.offers = {atPort};

  EXPECT_EQ(withPorts({port}, {.isExternalPowerConnected = true}).adapter,
            (AdapterState{.agreedVolts = 9, .agreedAmps = 3, .offers = {atPort}, .portNumber = 1}));
  const AdapterState reported{.agreedVolts = 20, .agreedAmps = 5, .offers = {known}};
  AdapterState expected = reported;
  expected.portNumber = 1;
  EXPECT_EQ(withPorts({port}, {.isExternalPowerConnected = true, .adapter = reported}).adapter,
            expected);
}

TEST(ChargingState, GetsOffersOfTheFirstControllerOfADock) {
  HPMPort dock = chargingPort(1);
  dock.hasData = true;
  dock.details.offers = {{.minVolts = 20, .maxVolts = 20, .amps = 5}};
  const ChargingState state =
      withPorts({dock, chargingPort(1)}, {.isExternalPowerConnected = true});
  EXPECT_EQ(state.adapter.value().portNumber, 1);
  EXPECT_EQ(state.adapter.value().offers, dock.details.offers);
}

TEST(ChargingState, TakesTheMostThatAnyPortTakes) {
  HPMPort weak{.portNumber = 1};
  weak.details.intake = {{.minVolts = 5, .maxVolts = 5, .amps = 3}};
  HPMPort strong{.portNumber = 2};
  strong.details.intake = {{.minVolts = 20, .maxVolts = 20, .amps = 5}};
  EXPECT_EQ(withPorts({weak, strong, {}}, {}).maxIntakeWatts, 100);
  EXPECT_EQ(withPorts({{}}, {}).maxIntakeWatts, std::nullopt);
}

TEST(OffersOnAPort, AreThoseOfTheAdapterIfItIsThere) {
  HPMPort port = chargingPort(2);
  port.details.offers = {{.minVolts = 5, .maxVolts = 5, .amps = 3}};
  const AdapterState adapter{.offers = {{.minVolts = 20, .maxVolts = 20, .amps = 5}},
                             .portNumber = 2};
  EXPECT_EQ(offersOn(port, ChargingState{.adapter = adapter}), adapter.offers);
  EXPECT_EQ(offersOn(port, ChargingState{}), port.details.offers);
  EXPECT_EQ(offersOn(port, std::nullopt), port.details.offers);
  HPMPort other = port;
  other.portNumber = 1;
  EXPECT_EQ(offersOn(other, ChargingState{.adapter = adapter}), port.details.offers);
  HPMPort magSafe = port;
  magSafe.isMagSafe = true;
  EXPECT_EQ(offersOn(magSafe, ChargingState{.adapter = adapter}), port.details.offers);
}

} // namespace
} // namespace tamberline
