#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>

namespace tamberline {
namespace {

using PowerOut = std::map<std::int64_t, PortPowerOut>;

PowerOut powerOutIn(const std::string& content) {
  return portPowerOutIn(decodedList(content));
}

std::string details(const std::string& elements) {
  return "<key>PowerOutDetails</key><array>" + elements + "</array>";
}

std::string element(const std::string& members, int portIndex = 1) {
  return "<dict><key>PortIndex</key><integer>" + std::to_string(portIndex) + "</integer>" +
         members + "</dict>";
}

std::string watts(int hundredths) {
  return "<key>Watts</key><integer>" + std::to_string(hundredths) + "</integer>";
}

TEST(PortPowerOut, TurnsTheControllersUnitsIntoWattsVoltsAndAmperes) {
  EXPECT_EQ(powerOutIn("<array><dict>" +
                       details(element("<key>Watts</key><integer>1500</integer>"
                                       "<key>ConfiguredVoltage</key><integer>20000</integer>"
                                       "<key>ConfiguredCurrent</key><integer>3000</integer>"
                                       "<key>AdapterVoltage</key><integer>20000</integer>"
                                       "<key>Current</key><integer>750</integer>",
                                       2)) +
                       "</dict></array>"),
            (PowerOut{{2, {.usedWatts = 15, .allocatedWatts = 60, .volts = 20, .amps = 0.75}}}));
}

TEST(PortPowerOut, ReadsEachMeasurementFromItsOwnKey) {
  const auto only = [](const std::string& key) {
    return powerOutIn("<dict>" + details(element("<key>" + key + "</key><integer>1234</integer>")) +
                      "</dict>")
        .at(1);
  };
  EXPECT_EQ(only("Watts"), PortPowerOut{.usedWatts = 12.34});
  EXPECT_EQ(only("AdapterVoltage"), PortPowerOut{.volts = 1.234});
  EXPECT_EQ(only("Current"), PortPowerOut{.amps = 1.234});
  EXPECT_EQ(only("ConfiguredVoltage"), PortPowerOut{});
  EXPECT_EQ(only("ConfiguredCurrent"), PortPowerOut{});
}

TEST(PortPowerOut, TakesMissingAndMistypedMeasurementsForZero) {
  EXPECT_EQ(powerOutIn("<dict>" + details(element("")) + "</dict>"), (PowerOut{{1, {}}}));
  EXPECT_EQ(powerOutIn("<dict>" +
                       details(element("<key>Watts</key><string>1500</string>"
                                       "<key>ConfiguredVoltage</key><real>20000</real>"
                                       "<key>ConfiguredCurrent</key><integer>3000</integer>"
                                       "<key>AdapterVoltage</key><true/>"
                                       "<key>Current</key><data>AQ==</data>")) +
                       "</dict>"),
            (PowerOut{{1, {}}}));
}

TEST(PortPowerOut, KeepsNegativeMeasurements) {
  EXPECT_EQ(powerOutIn("<dict>" + details(element(watts(-150))) + "</dict>"),
            (PowerOut{{1, {.usedWatts = -1.5}}}));
}

TEST(PortPowerOut, MultipliesLargeMeasurementsAsReals) {
  EXPECT_EQ(
      powerOutIn("<dict>" +
                 details(element("<key>ConfiguredVoltage</key><integer>4000000000000</integer>"
                                 "<key>ConfiguredCurrent</key><integer>5000000000000</integer>")) +
                 "</dict>"),
      (PowerOut{{1, {.allocatedWatts = 2e19}}}));
}

TEST(PortPowerOut, HasAnEntryForEachPort) {
  EXPECT_EQ(
      powerOutIn("<dict>" + details(element(watts(300), 3) + element(watts(100), 1)) + "</dict>"),
      (PowerOut{{1, {.usedWatts = 1}}, {3, {.usedWatts = 3}}}));
}

TEST(PortPowerOut, UsesTheLaterOfTwoElementsForOnePort) {
  EXPECT_EQ(powerOutIn("<array><dict>" + details(element(watts(100)) + element(watts(200))) +
                       "</dict></array>"),
            (PowerOut{{1, {.usedWatts = 2}}}));
  EXPECT_EQ(powerOutIn("<array><dict>" + details(element(watts(100))) + "</dict><dict>" +
                       details(element(watts(300))) + "</dict></array>"),
            (PowerOut{{1, {.usedWatts = 3}}}));
}

TEST(PortPowerOut, DropsAllMeasurementsOfTheEarlierElement) {
  EXPECT_EQ(powerOutIn(
                "<dict>" +
                details(element("<key>Current</key><integer>750</integer>") + element(watts(200))) +
                "</dict>"),
            (PowerOut{{1, {.usedWatts = 2}}}));
}

TEST(PortPowerOut, SkipsElementsThatNameNoPort) {
  EXPECT_EQ(
      powerOutIn("<dict>" +
                 details("<string>x</string><array>" + element(watts(100)) + "</array>" + "<dict>" +
                         watts(100) + "</dict>" +
                         "<dict><key>PortIndex</key><string>1</string></dict>" +
                         "<dict><key>PortIndex</key><true/></dict>" + element(watts(200), 2)) +
                 "</dict>"),
      (PowerOut{{2, {.usedWatts = 2}}}));
}

TEST(PortPowerOut, IsFoundAnywhereInTheDump) {
  EXPECT_EQ(powerOutIn("<array><dict><key>IORegistryEntryChildren</key><array><dict>" +
                       details(element(watts(100))) + "</dict></array></dict></array>"),
            (PowerOut{{1, {.usedWatts = 1}}}));
}

TEST(PortPowerOut, IsEmptyWithoutDetails) {
  EXPECT_EQ(powerOutIn("<array/>"), PowerOut{});
  EXPECT_EQ(powerOutIn("<array><dict/></array>"), PowerOut{});
  EXPECT_EQ(powerOutIn("<dict><key>PowerOutDetails</key>" + element(watts(100)) + "</dict>"),
            PowerOut{});
}

} // namespace
} // namespace tamberline
