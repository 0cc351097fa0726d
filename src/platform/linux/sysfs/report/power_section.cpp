#include "platform/linux/sysfs/report/adapters.h"
#include "platform/linux/sysfs/report/report_sections.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

const char* flag(bool isSet) {
  return isSet ? "TRUE" : "FALSE";
}

/// The battery's full charge in percent of its design capacity; empty if unknown.
std::string maximumCapacity(const PowerSupply& battery) {
  if (battery.fullCharge.value_or(0) <= 0 || battery.fullChargeByDesign.value_or(0) <= 0) {
    return {};
  }
  const double share =
      static_cast<double>(*battery.fullCharge) / static_cast<double>(*battery.fullChargeByDesign);
  constexpr double maxCredibleShare = 10;
  return share <= maxCredibleShare ? std::to_string(std::llround(share * 100)) + "%" : "";
}

json batteryEntry(const PowerSupply& battery) {
  return {{"_name", "spbattery_information"},
          {"sppower_battery_charge_info",
           {{"sppower_battery_state_of_charge", battery.capacityPercent.value_or(0)},
            {"sppower_battery_fully_charged", flag(battery.status == "Full")},
            {"sppower_battery_is_charging", flag(battery.status == "Charging")}}},
          {"sppower_battery_health_info",
           {{"sppower_battery_health", battery.health},
            {"sppower_battery_health_maximum_capacity", maximumCapacity(battery)},
            {"sppower_battery_cycle_count", battery.cycleCount.value_or(0)}}}};
}

/// In the report the rating precedes the name.
std::string adapterName(const PowerSupply& adapter, const Machine& machine) {
  std::string name = adapter.modelName;
  if (name.empty()) {
    name = chargingPort(machine) ? "USB-C Power Adapter" : "Power Adapter";
  }
  const auto rating = ratingInUse(machine);
  return rating ? std::to_string(std::llround(*rating)) + "W " + name : name;
}

json chargerEntry(const Machine& machine) {
  const PowerSupply* adapter = adapterInUse(machine);
  const PowerSupply* battery = batteryOf(machine);
  json entry = {
      {"_name", "sppower_ac_charger_information"},
      {"sppower_battery_charger_connected", flag(adapter != nullptr)},
      {"sppower_battery_is_charging", flag(battery != nullptr && battery->status == "Charging")}};
  if (adapter != nullptr) {
    entry["sppower_ac_charger_name"] = adapterName(*adapter, machine);
    entry["sppower_ac_charger_manufacturer"] = adapter->manufacturer;
    if (const auto watts = measuredWatts(*adapter)) {
      entry["sppower_ac_charger_watts"] = std::to_string(std::llround(*watts));
    }
    if (!chargingPort(machine)) {
      entry["tamberline_charger_place"] = adapter->type == "Mains" ? "socket" : "usb";
    }
  }
  return entry;
}

} // namespace

json powerSection(const Machine& machine) {
  json entries = json::array();
  const PowerSupply* battery = batteryOf(machine);
  if (battery != nullptr) {
    entries.push_back(batteryEntry(*battery));
  }
  const auto& supplies = machine.powerSupplies;
  if (battery != nullptr ||
      std::any_of(supplies.begin(), supplies.end(),
                  [](const PowerSupply& supply) { return supply.isAdapter(); })) {
    entries.push_back(chargerEntry(machine));
  }
  return {{powerSectionKey, std::move(entries)}};
}

} // namespace tamberline::sysfs
