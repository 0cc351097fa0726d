#include "reports/power_report.h"

#include "base/text.h"
#include "reports/json_values.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tamberline {
namespace {

using nlohmann::json;

const json* firstEntryNamed(const json& entries, std::string_view name) {
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const json& entry) {
    return textMember(entry, "_name", "") == name;
  });
  return found == entries.end() ? nullptr : &*found;
}

BatteryInfo parseBattery(const json& entry) {
  const json& charge = objectMember(entry, "sppower_battery_charge_info");
  const json& health = objectMember(entry, "sppower_battery_health_info");
  return BatteryInfo{
      .stateOfCharge = integerMember(charge, "sppower_battery_state_of_charge").value_or(0),
      .isFullyCharged = flagMember(charge, "sppower_battery_fully_charged"),
      .isCharging = flagMember(charge, "sppower_battery_is_charging"),
      .health = textMember(health, "sppower_battery_health", ""),
      .maxCapacityPercent = textMember(health, "sppower_battery_health_maximum_capacity", ""),
      .cycleCount = integerMember(health, "sppower_battery_cycle_count").value_or(0),
  };
}

/// Adapters have their rating in front of their name, such as "96W USB-C Power Adapter".
std::optional<std::int64_t> ratedWattsIn(std::string_view name) {
  return parseDecimal(trimmed(split(name, 'W').front()));
}

ChargerInfo parseCharger(const json& entry) {
  const std::string name = textMember(entry, "sppower_ac_charger_name", "USB-C Power Adapter");
  const auto place = textMember(entry, "tamberline_charger_place"); // not in a Mac's reports
  return ChargerInfo{
      .name = name,
      .manufacturer = textMember(entry, "sppower_ac_charger_manufacturer", ""),
      .ratedWatts = ratedWattsIn(name),
      .currentWatts = integerTextMember(entry, "sppower_ac_charger_watts"),
      .hardwareVersion = textMember(entry, "sppower_ac_charger_hardware_version", ""),
      .firmwareVersion = textMember(entry, "sppower_ac_charger_firmware_version", ""),
      .isConnected = flagMember(entry, "sppower_battery_charger_connected"),
      .isCharging = flagMember(entry, "sppower_battery_is_charging"),
      .connectsViaUSBC = place == "usb",
      .isOnNoKnownPort = place.has_value(),
  };
}

} // namespace

PowerReading parsePower(const json& report) {
  const json& entries = objectsMember(report, powerSectionKey);
  PowerReading reading;
  if (const json* battery = firstEntryNamed(entries, "spbattery_information")) {
    reading.battery = parseBattery(*battery);
  }
  if (const json* charger = firstEntryNamed(entries, "sppower_ac_charger_information")) {
    reading.charger = parseCharger(*charger);
  }
  return reading;
}

} // namespace tamberline
