#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tamberline::sysfs {
namespace {

using Attributes = std::map<std::string, std::string>;

TEST(ExternalPower, IsAnAdapterOrTheLackOfABattery) {
  const Attributes battery = {{"type", "Battery"}, {"status", "Discharging"}};
  const Attributes mouse = {{"type", "Battery"}, {"scope", "Device"}};
  const Attributes off = {{"type", "Mains"}, {"online", "0"}};
  const Attributes on = {{"type", "USB"}, {"online", "1"}};
  const struct {
    const char* name;
    std::vector<Attributes> supplies;
    bool expected;
  } table[] = {
      {"nothing", {}, true},
      {"desktop with a mouse", {mouse}, true},
      {"desktop with an idle port", {off}, true},
      {"laptop on its battery", {battery, off, mouse}, false},
      {"laptop that says nothing of adapters", {battery}, false},
      {"laptop with an adapter", {battery, off, on}, true},
      {"unreadable", {{}}, true},
  };
  for (const auto& row : table) {
    const SysfsTree tree;
    for (const Attributes& supply : row.supplies) {
      const std::string name = "supply" + std::to_string(&supply - row.supplies.data());
      tree.classDevice("power_supply", "x", name, supply);
    }
    EXPECT_EQ(isOnExternalPower(tree.sysfs()), row.expected) << row.name;
  }
}

TEST(PowerSupplies, AreReadWithTheDeviceThatTheyBelongTo) {
  const SysfsTree tree;
  tree.classDevice("power_supply", "platform/USBC000:00", "ucsi-source-psy-USBC000:001",
                   {{"type", "USB"}, {"online", "1"}, {"voltage_now", "20000000"}});
  tree.classDevice("power_supply", "acpi", "BAT0",
                   {{"type", "Battery"}, {"energy_full", "12"}, {"online", "1"}});
  const auto supplies = tree.read().powerSupplies;
  ASSERT_EQ(supplies.size(), 2U);
  EXPECT_EQ(supplies[0].name, "BAT0");
  EXPECT_EQ(supplies[0].fullCharge, 12);
  EXPECT_FALSE(supplies[0].isOnline);
  EXPECT_EQ(supplies[1].controller, "devices/platform/USBC000:00");
  EXPECT_EQ(supplies[1].voltageNow, 20'000'000);
}

TEST(PowerSupplies, AreReadWithWhatABatteryMeasuresAndItsLimits) {
  const SysfsTree tree;
  tree.classDevice("power_supply", "acpi", "BAT0",
                   {{"type", "Battery"},
                    {"voltage_now", "12000000"},
                    {"current_now", "-1500000"},
                    {"power_now", "18000000"},
                    {"charge_control_start_threshold", "75"},
                    {"charge_control_end_threshold", "80"},
                    {"charge_behaviour", "auto [inhibit-charge] force-discharge"}});
  const PowerSupply battery = tree.read().powerSupplies.at(0);
  EXPECT_EQ(battery.batteryVoltage, 12'000'000);
  EXPECT_EQ(battery.batteryCurrent, -1'500'000);
  EXPECT_EQ(battery.batteryPower, 18'000'000);
  EXPECT_EQ(battery.limitStartPercent, 75);
  EXPECT_EQ(battery.limitEndPercent, 80);
  EXPECT_EQ(battery.behaviour, "inhibit-charge");
  EXPECT_EQ(battery.voltageNow, std::nullopt);
}

} // namespace
} // namespace tamberline::sysfs
