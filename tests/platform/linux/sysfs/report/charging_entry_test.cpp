#include "platform/linux/sysfs/report/property_list_text.h"
#include "platform/linux/sysfs/report/registry_dumps.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <string>
#include <vector>

namespace tamberline::sysfs {
namespace {

/// As a scan reads it.
std::optional<ChargingState> chargingOf(const std::vector<PowerSupply>& supplies) {
  Machine machine;
  machine.powerSupplies = supplies;
  const auto list = PropertyList::decode(asPropertyList(portPowerDump(machine)));
  return chargingIn(list.value());
}

PowerSupply batteryWith(const std::string& status, std::optional<std::int64_t> current = {}) {
  return {.type = "Battery", .status = status, .batteryCurrent = current};
}

const PowerSupply adapter{.type = "Mains", .isOnline = true};
const PowerSupply idleAdapter{.type = "Mains"};

TEST(ChargingEntry, ContainsTheBatteryAndTheAdapter) {
  const PowerSupply battery{.type = "Battery",
                            .status = "Charging",
                            .capacityPercent = 54,
                            .batteryCurrent = 2'874'000,
                            .batteryPower = 34'000'000,
                            .limitStartPercent = 75,
                            .limitEndPercent = 80,
                            .behaviour = "auto"};
  const PowerSupply meter{.type = "USB",
                          .isOnline = true,
                          .voltageNow = 20'000'000,
                          .voltageMax = 20'000'000,
                          .currentNow = 2'000'000,
                          .currentMax = 3'250'000};
  EXPECT_EQ(chargingOf({battery, meter}),
            (ChargingState{.isExternalPowerConnected = true,
                           .hasBattery = true,
                           .isCharging = true,
                           .isFullyCharged = false,
                           .chargePercent = 54,
                           .batteryMa = 2874,
                           .batteryWatts = 34,
                           .inputWatts = 40,
                           .limitStartPercent = 75,
                           .limitEndPercent = 80,
                           .statusText = "Charging",
                           .behaviour = "auto",
                           .adapter = AdapterState{.ratedWatts = 65}}));
}

TEST(ChargingEntry, IsEmptyWithoutSupplies) {
  EXPECT_EQ(chargingOf({}), std::nullopt);
  EXPECT_EQ(chargingOf({{.type = "Battery", .belongsToDevice = true}}), std::nullopt);
}

TEST(ChargingEntry, TellsWhetherThereIsExternalPower) {
  const struct {
    const char* name;
    std::vector<PowerSupply> supplies;
    std::optional<bool> expected;
  } table[] = {
      {"adapter", {batteryWith("Full"), adapter}, true},
      {"idle adapter", {batteryWith("Discharging"), idleAdapter}, false},
      {"desktop with an idle port", {idleAdapter}, true},
      {"no adapter, charging", {batteryWith("Charging")}, true},
      {"no adapter, draining", {batteryWith("Discharging")}, false},
      {"no adapter, full", {batteryWith("Full")}, std::nullopt},
  };
  for (const auto& row : table) {
    EXPECT_EQ(chargingOf(row.supplies).value().isExternalPowerConnected, row.expected) << row.name;
  }
}

TEST(ChargingEntry, TellsWhatTheBatteryDoes) {
  const struct {
    std::string status;
    std::optional<bool> isCharging;
    std::optional<bool> isFull;
  } table[] = {
      {"Charging", true, false},     {"Full", false, true}, {"Not charging", false, false},
      {"Discharging", false, false}, {"Unknown", {}, {}},   {"", {}, {}},
  };
  for (const auto& row : table) {
    const ChargingState state = chargingOf({batteryWith(row.status), adapter}).value();
    EXPECT_EQ(state.isCharging, row.isCharging) << row.status;
    EXPECT_EQ(state.isFullyCharged, row.isFull) << row.status;
    EXPECT_EQ(state.statusText, row.isFull ? row.status : "") << row.status;
  }
}

TEST(ChargingEntry, TakesTheDirectionOfACurrentFromTheStatus) {
  constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
  const struct {
    std::string status;
    std::int64_t microamperes;
    std::optional<std::int64_t> expected;
  } table[] = {
      {"Charging", 1'500'000, 1500},
      {"Charging", -1'500'000, 1500},
      {"Discharging", 900'000, -900},
      {"Discharging", -900'000, -900},
      {"Full", 0, 0},
      {"Not charging", 0, 0},
      {"Not charging", 700'000, {}},
      {"Unknown", 700'000, {}},
      {"Discharging", lowest, {}},
  };
  for (const auto& row : table) {
    EXPECT_EQ(chargingOf({batteryWith(row.status, row.microamperes)}).value().batteryMa,
              row.expected)
        << row.status << row.microamperes;
  }
}

TEST(ChargingEntry, ComputesThePowerOfABatteryThatOnlyHasVoltageAndCurrent) {
  PowerSupply battery = batteryWith("Discharging", 1'000'000);
  EXPECT_EQ(chargingOf({battery}).value().batteryWatts, std::nullopt);
  battery.batteryVoltage = 12'000'000;
  EXPECT_EQ(chargingOf({battery}).value().batteryWatts, -12);
  battery.batteryPower = 11'500'000;
  EXPECT_EQ(chargingOf({battery}).value().batteryWatts, -11.5);
  battery.batteryPower = std::nullopt;
  battery.batteryVoltage = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(chargingOf({battery}).value().batteryWatts, std::nullopt);
}

} // namespace
} // namespace tamberline::sysfs
