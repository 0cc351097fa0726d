#include "registry/decoded_list.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

std::string key(const std::string& name, const std::string& value) {
  return "<key>" + name + "</key>" + value;
}

std::string integer(const std::string& digits) {
  return "<integer>" + digits + "</integer>";
}

std::optional<ChargingState> chargingOf(const std::string& content) {
  return chargingIn(decodedList(content));
}

/// Of a computer with a battery.
ChargingState chargingWith(const std::string& members) {
  return chargingOf("<array><dict><key>BatteryInstalled</key><true/>" + members + "</dict></array>")
      .value();
}

ChargingState chargingWithIn(const std::string& dictionary, const std::string& members) {
  return chargingWith(key(dictionary, "<dict>" + members + "</dict>"));
}

TEST(Charging, IsReadFromTheBatteryController) {
  const ChargingState state = chargingWith(R"(
    <key>ExternalConnected</key><true/>
    <key>IsCharging</key><true/>
    <key>FullyCharged</key><false/>
    <key>CurrentCapacity</key><integer>54</integer>
    <key>MaxCapacity</key><integer>100</integer>
    <key>Amperage</key><integer>2874</integer>
    <key>ChargerData</key><dict>
      <key>ChargingCurrent</key><integer>3000</integer>
      <key>NotChargingReason</key><integer>0</integer>
      <key>SlowChargingReason</key><integer>4</integer>
      <key>ChargerInhibitReason</key><integer>36028797018963968</integer>
    </dict>
    <key>PowerTelemetryData</key><dict>
      <key>SystemPowerIn</key><integer>61250</integer>
      <key>SystemLoad</key><integer>12500</integer>
      <key>BatteryPower</key><integer>34000</integer>
    </dict>
    <key>AdapterDetails</key><dict>
      <key>Watts</key><integer>69</integer>
      <key>AdapterVoltage</key><integer>20000</integer>
      <key>Current</key><integer>3450</integer>
      <key>UsbHvcHvcIndex</key><integer>1</integer>
      <key>UsbHvcMenu</key><array>
        <dict><key>Index</key><integer>0</integer><key>MaxVoltage</key><integer>5000</integer>
          <key>MaxCurrent</key><integer>3000</integer></dict>
        <dict><key>Index</key><integer>1</integer><key>MaxVoltage</key><integer>20000</integer>
          <key>MaxCurrent</key><integer>3450</integer></dict>
      </array>
    </dict>)");
  EXPECT_EQ(
      state,
      (ChargingState{
          .isExternalPowerConnected = true,
          .hasBattery = true,
          .isCharging = true,
          .isFullyCharged = false,
          .chargePercent = 54,
          .batteryMa = 2874,
          .batteryWatts = 34,
          .inputWatts = 61.25,
          .systemWatts = 12.5,
          .wantedMa = 3000,
          .reasons = {.notCharging = 0,
                      .slowCharging = 4,
                      .inhibited = ChargingReasons::softwareInhibits},
          .adapter = AdapterState{
              .ratedWatts = 69,
              .agreedVolts = 20,
              .agreedAmps = 3.45,
              .offers = {{.minVolts = 5, .maxVolts = 5, .amps = 3},
                         {.minVolts = 20, .maxVolts = 20, .amps = 3.45, .isAgreed = true}}}}));
}

TEST(Charging, IsUnknownWithoutABatteryController) {
  EXPECT_EQ(chargingOf("<array/>"), std::nullopt);
  EXPECT_EQ(chargingOf("<array><dict><key>Amperage</key><integer>5</integer></dict></array>"),
            std::nullopt);
  EXPECT_EQ(
      chargingOf("<array><dict><key>ExternalConnected</key><integer>1</integer></dict></array>"),
      std::nullopt);
}

TEST(Charging, IsReadFromTheFirstControllerOfTheWalk) {
  EXPECT_EQ(chargingOf(R"(<dict><key>IORegistryEntryChildren</key><array>
      <dict><key>ExternalConnected</key><true/></dict>
      <dict><key>ExternalConnected</key><false/></dict></array></dict>)")
                .value()
                .isExternalPowerConnected,
            true);
}

TEST(Charging, HasNoBatteryValuesWithoutABattery) {
  const auto state = chargingOf(R"(<array><dict><key>BatteryInstalled</key><false/>
      <key>ExternalConnected</key><true/><key>IsCharging</key><false/>
      <key>CurrentCapacity</key><integer>0</integer><key>Amperage</key><integer>0</integer>
      <key>AdapterDetails</key><dict><key>FamilyCode</key><integer>0</integer></dict>
      </dict></array>)");
  EXPECT_EQ(state, (ChargingState{.isExternalPowerConnected = true, .hasBattery = false}));
}

TEST(Charging, IgnoresAnAdapterThatIsNoLongerConnected) {
  EXPECT_FALSE(chargingWith(R"(<key>ExternalConnected</key><false/>
      <key>AdapterDetails</key><dict><key>Watts</key><integer>60</integer></dict>)")
                   .adapter);
}

struct NumberCase {
  std::string digits;
  std::optional<std::int64_t> read;
};

TEST(Charging, ReadsDrainingCurrentsHoweverTheyAreWritten) {
  const std::vector<NumberCase> cases = {
      {"-1037", -1037},
      {"18446744073709550579", -1037},
      {"18446744073709551615", -1},
      {"0xfffffffffffffff6", -10},
      {"2874", 2874},
      {"0", 0},
      {"100000", 100000},
      {"100001", std::nullopt},
      {"9223372036854775807", std::nullopt},
      {"9223372036854775808", std::nullopt},
      {"18446744073709551616", std::nullopt},
      {"-9223372036854775808", std::nullopt},
      {"99999999999999999999999", std::nullopt},
  };
  for (const NumberCase& one : cases) {
    EXPECT_EQ(chargingWith(key("Amperage", integer(one.digits))).batteryMa, one.read) << one.digits;
  }
  EXPECT_EQ(
      chargingWithIn("PowerTelemetryData", key("BatteryPower", integer("18446744073709539616")))
          .batteryWatts,
      -12);
}

TEST(Charging, ReadsMasksOf64Bits) {
  const ChargingReasons reasons =
      chargingWithIn("ChargerData", key("NotChargingReason", integer("16777216")) +
                                        key("ChargerInhibitReason", integer("9223372036854775808")))
          .reasons;
  EXPECT_EQ(reasons.notCharging, ChargingReasons::isHeldAtLimit);
  EXPECT_TRUE(reasons.inhibited);
  EXPECT_FALSE(reasons.contains(ChargingReasons::softwareInhibits));
  EXPECT_FALSE(reasons.slowCharging);
}

TEST(Charging, ConvertsOlderCapacitiesToPercent) {
  const auto percentOf = [](const std::string& charge, const std::string& full) {
    return chargingWith(key("CurrentCapacity", integer(charge)) + key("MaxCapacity", integer(full)))
        .chargePercent;
  };
  EXPECT_EQ(percentOf("2500", "5000"), 50);
  EXPECT_EQ(percentOf("64", "100"), 64);
  EXPECT_EQ(percentOf("64", "0"), 64);
  EXPECT_EQ(percentOf("5001", "5000"), 100);
  EXPECT_EQ(percentOf("6000", "5000"), std::nullopt);
  EXPECT_EQ(percentOf("-1", "100"), std::nullopt);
  EXPECT_EQ(percentOf("9223372036854775807", "100"), std::nullopt);
}

TEST(Charging, ReadsWhatOnlyTheKernelReports) {
  const ChargingState state = chargingWith(
      key("TamberlineStatus", "<string>Not charging</string>") +
      key("TamberlineBehaviour", "<string>inhibit-charge</string>") +
      key("TamberlineLimitStart", integer("75")) + key("TamberlineLimitEnd", integer("80")));
  EXPECT_EQ(state.statusText, "Not charging");
  EXPECT_EQ(state.behaviour, "inhibit-charge");
  EXPECT_EQ(state.limitStartPercent, 75);
  EXPECT_EQ(state.limitEndPercent, 80);
  EXPECT_FALSE(chargingWith(key("TamberlineLimitEnd", integer("101"))).limitEndPercent);
}

TEST(Charging, LeavesOutWhatHasAnotherTypeOrCannotBe) {
  const std::string text = "<string>1</string>";
  const std::vector<std::pair<std::string, std::string>> members = {
      {"IsCharging", integer("1")},
      {"FullyCharged", text},
      {"Amperage", text},
      {"CurrentCapacity", "<real>54</real>"},
      {"ChargerData", text},
      {"PowerTelemetryData", "<array/>"},
      {"AdapterDetails", text},
      {"TamberlineStatus", integer("5")},
      {"AdapterDetails", "<dict>" + key("Watts", integer("0")) + key("Current", integer("-1")) +
                             key("AdapterVoltage", integer("100001")) + "</dict>"},
      {"AdapterDetails", "<dict>" + key("Watts", integer("10001")) +
                             key("UsbHvcMenu", "<array>" + text + "<dict/></array>") + "</dict>"},
      {"PowerTelemetryData", "<dict>" + key("SystemPowerIn", integer("-1")) +
                                 key("SystemLoad", integer("18446744073709551615")) + "</dict>"},
      {"ChargerData", "<dict>" + key("ChargingCurrent", integer("-5")) + "</dict>"},
  };
  for (const auto& [name, value] : members) {
    EXPECT_EQ(chargingWith(key(name, value)), ChargingState{.hasBattery = true}) << name << value;
  }
}

TEST(Charging, LimitsTheNumberOfOffers) {
  std::string menu;
  for (int index = 0; index < 100; ++index) {
    menu += "<dict>" + key("MaxVoltage", integer("5000")) + key("MaxCurrent", integer("3000")) +
            "</dict>";
  }
  EXPECT_EQ(chargingWithIn("AdapterDetails", key("UsbHvcMenu", "<array>" + menu + "</array>"))
                .adapter.value()
                .offers.size(),
            16U);
}

TEST(Charging, AgreesOnNoOfferWithoutAnIndex) {
  const std::string offer = "<dict>" + key("MaxVoltage", integer("5000")) +
                            key("MaxCurrent", integer("3000")) + "</dict>";
  EXPECT_EQ(chargingWithIn("AdapterDetails", key("UsbHvcMenu", "<array>" + offer + "</array>"))
                .adapter.value()
                .offers.front(),
            (PowerOffer{.minVolts = 5, .maxVolts = 5, .amps = 3}));
}

} // namespace
} // namespace tamberline
