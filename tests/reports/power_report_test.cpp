#include "reports/power_report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {
namespace {

using nlohmann::json;

PowerReading readingOf(const std::string& section) {
  return parsePower(json::parse(R"({"SPPowerDataType": )" + section + "}"));
}

ChargerInfo chargerOf(json entry) {
  entry["_name"] = "sppower_ac_charger_information";
  return parsePower(json{{"SPPowerDataType", json::array({entry})}}).charger.value();
}

TEST(PowerReport, ReadsTheBattery) {
  const PowerReading reading = readingOf(R"([{
    "_name": "spbattery_information",
    "sppower_battery_charge_info": {
      "sppower_battery_state_of_charge": 87,
      "sppower_battery_fully_charged": "TRUE",
      "sppower_battery_is_charging": "TRUE"
    },
    "sppower_battery_health_info": {
      "sppower_battery_health": "Good",
      "sppower_battery_health_maximum_capacity": "91%",
      "sppower_battery_cycle_count": 122
    }
  }])");
  EXPECT_EQ(reading.battery, (BatteryInfo{.stateOfCharge = 87,
                                          .isFullyCharged = true,
                                          .isCharging = true,
                                          .health = "Good",
                                          .maxCapacityPercent = "91%",
                                          .cycleCount = 122}));
  EXPECT_EQ(reading.charger, std::nullopt);
}

TEST(PowerReport, KeepsTheCapacityAsTheReportWritesIt) {
  const PowerReading reading = readingOf("[{\"_name\": \"spbattery_information\","
                                         "\"sppower_battery_health_info\": {"
                                         "\"sppower_battery_health_maximum_capacity\": "
                                         "\"100\u00A0% \"}}]");
  ASSERT_TRUE(reading.battery);
  EXPECT_EQ(reading.battery->maxCapacityPercent, "100\u00A0% ");
}

TEST(PowerReport, GivesABatteryWithoutAnythingDefaults) {
  const PowerReading reading = readingOf(R"([{"_name": "spbattery_information"}])");
  EXPECT_EQ(reading.battery, BatteryInfo{});
}

TEST(PowerReport, GivesABatteryWithValuesOfAnotherTypeDefaults) {
  const PowerReading wrongMembers = readingOf(R"([{
    "_name": "spbattery_information",
    "sppower_battery_charge_info": {"sppower_battery_state_of_charge": "87",
      "sppower_battery_fully_charged": 1, "sppower_battery_is_charging": true},
    "sppower_battery_health_info": {"sppower_battery_health": 1,
      "sppower_battery_health_maximum_capacity": 91, "sppower_battery_cycle_count": 1.5}}])");
  EXPECT_EQ(wrongMembers.battery, BatteryInfo{});
  const PowerReading wrongObjects = readingOf(R"([{
    "_name": "spbattery_information",
    "sppower_battery_charge_info": [{"sppower_battery_state_of_charge": 87}],
    "sppower_battery_health_info": "Good"}])");
  EXPECT_EQ(wrongObjects.battery, BatteryInfo{});
}

TEST(PowerReport, ReadsBatteryValuesOnlyFromTheirOwnObjects) {
  const PowerReading reading = readingOf(R"([{
    "_name": "spbattery_information",
    "sppower_battery_state_of_charge": 87, "sppower_battery_health": "Good",
    "sppower_battery_charge_info": {"sppower_battery_cycle_count": 122},
    "sppower_battery_health_info": {"sppower_battery_is_charging": "TRUE"}}])");
  EXPECT_EQ(reading.battery, BatteryInfo{});
}

TEST(PowerReport, ReadsTheCharger) {
  const PowerReading reading = readingOf(R"([{
    "_name": "sppower_ac_charger_information",
    "sppower_ac_charger_name": "96W USB-C Power Adapter",
    "sppower_ac_charger_manufacturer": "Harbour",
    "sppower_ac_charger_hardware_version": "1.0",
    "sppower_ac_charger_firmware_version": "01080054",
    "sppower_ac_charger_watts": "60",
    "sppower_battery_charger_connected": "TRUE",
    "sppower_battery_is_charging": "TRUE"
  }])");
  EXPECT_EQ(reading.charger, (ChargerInfo{.name = "96W USB-C Power Adapter",
                                          .manufacturer = "Harbour",
                                          .ratedWatts = 96,
                                          .currentWatts = 60,
                                          .hardwareVersion = "1.0",
                                          .firmwareVersion = "01080054",
                                          .isConnected = true,
                                          .isCharging = true}));
  EXPECT_EQ(reading.battery, std::nullopt);
}

TEST(PowerReport, GivesAChargerWithoutAnythingDefaults) {
  EXPECT_EQ(chargerOf(json::object()), ChargerInfo{.name = "USB-C Power Adapter"});
}

TEST(PowerReport, GivesAChargerWithValuesOfAnotherTypeDefaults) {
  EXPECT_EQ(chargerOf(json::parse(R"({
    "sppower_ac_charger_name": 96, "sppower_ac_charger_manufacturer": 1,
    "sppower_ac_charger_hardware_version": 1.0, "sppower_ac_charger_firmware_version": [],
    "sppower_ac_charger_watts": 60, "sppower_battery_charger_connected": true,
    "sppower_battery_is_charging": 1})")),
            ChargerInfo{.name = "USB-C Power Adapter"});
}

struct AdapterName {
  const char* name;
  std::optional<std::int64_t> ratedWatts;
};

TEST(PowerReport, TakesTheRatingFromTheFrontOfTheName) {
  const AdapterName names[] = {
      {"96W USB-C Power Adapter", 96},
      {"140W", 140},
      {" 61 W USB-C", 61},
      {"30", 30},
      {"+20W", 20},
      {"USB-C Power Adapter", std::nullopt},
      {"USB-C 96W Adapter", std::nullopt},
      {"W 96W", std::nullopt},
      {"96.5W", std::nullopt},
      {"96w Adapter", std::nullopt},
      {"", std::nullopt},
      {"99999999999999999999W", std::nullopt},
  };
  for (const auto& [name, ratedWatts] : names) {
    SCOPED_TRACE(name);
    const ChargerInfo charger = chargerOf({{"sppower_ac_charger_name", name}});
    EXPECT_EQ(charger.name, name);
    EXPECT_EQ(charger.ratedWatts, ratedWatts);
  }
}

TEST(PowerReport, ReadsDeliveredWattsThatAreADecimalInteger) {
  const auto wattsOf = [](const char* text) {
    return chargerOf({{"sppower_ac_charger_watts", text}}).currentWatts;
  };
  EXPECT_EQ(wattsOf("60"), 60);
  EXPECT_EQ(wattsOf("0"), 0);
  for (const char* text : {"", "60W", "60.0", " 60", "n/a"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(wattsOf(text), std::nullopt);
  }
}

TEST(PowerReport, SetsFlagsOnlyForOneText) {
  for (const json& value : {json("true"), json("True"), json("Yes"), json("TRUE "), json("FALSE"),
                            json(true), json(1)}) {
    SCOPED_TRACE(value.dump());
    const ChargerInfo charger = chargerOf(
        {{"sppower_battery_charger_connected", value}, {"sppower_battery_is_charging", value}});
    EXPECT_FALSE(charger.isConnected);
    EXPECT_FALSE(charger.isCharging);
  }
}

TEST(PowerReport, DistinguishesConnectedFromCharging) {
  const ChargerInfo connected = chargerOf({{"sppower_battery_charger_connected", "TRUE"}});
  EXPECT_TRUE(connected.isConnected);
  EXPECT_FALSE(connected.isCharging);
  const ChargerInfo charging = chargerOf({{"sppower_battery_is_charging", "TRUE"}});
  EXPECT_FALSE(charging.isConnected);
  EXPECT_TRUE(charging.isCharging);
}

TEST(PowerReport, DistinguishesFullyChargedFromCharging) {
  const PowerReading reading = readingOf(R"([{"_name": "spbattery_information",
    "sppower_battery_charge_info": {"sppower_battery_fully_charged": "TRUE",
                                    "sppower_battery_is_charging": "FALSE"}}])");
  ASSERT_TRUE(reading.battery);
  EXPECT_TRUE(reading.battery->isFullyCharged);
  EXPECT_FALSE(reading.battery->isCharging);
}

TEST(PowerReport, TakesTheFirstEntryOfEachKind) {
  const PowerReading reading = readingOf(R"([
    {"_name": "sppower_information"},
    {"_name": "sppower_ac_charger_information", "sppower_ac_charger_name": "first"},
    {"_name": "spbattery_information",
     "sppower_battery_charge_info": {"sppower_battery_state_of_charge": 1}},
    {"_name": "sppower_ac_charger_information", "sppower_ac_charger_name": "second"},
    {"_name": "spbattery_information",
     "sppower_battery_charge_info": {"sppower_battery_state_of_charge": 2}}])");
  ASSERT_TRUE(reading.charger);
  EXPECT_EQ(reading.charger->name, "first");
  ASSERT_TRUE(reading.battery);
  EXPECT_EQ(reading.battery->stateOfCharge, 1);
}

TEST(PowerReport, OmitsMissingEntries) {
  for (const char* report :
       {"{}", R"({"SPPowerDataType": []})", R"({"SPPowerDataType": {}})",
        R"({"SPPowerDataType": "x"})", R"({"SPPowerDataType": [{}, {"_name": 1}]})",
        R"({"SPPowerDataType": [{"_name": "spbattery_information"}, 1]})",
        R"({"SPPowerDataType": [{"_name": "spbattery_information "}]})",
        R"({"SPUSBDataType": [{"_name": "spbattery_information"}]})", "null"}) {
    SCOPED_TRACE(report);
    const PowerReading reading = parsePower(json::parse(report));
    EXPECT_EQ(reading.battery, std::nullopt);
    EXPECT_EQ(reading.charger, std::nullopt);
  }
}

} // namespace
} // namespace tamberline
