#include "platform/linux/sysfs/report/charging_entry.h"

#include "platform/linux/sysfs/report/adapters.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

/// Neither 0 nor a number for which the sign cannot be changed.
bool isSound(const std::optional<std::int64_t>& value) {
  constexpr std::int64_t maxCredible = 1'000'000'000'000;
  return value && *value >= -maxCredible && *value <= maxCredible;
}

/// Batteries report the direction in their status; some drivers also in the sign of the current,
/// and some not. Absent if a battery that does neither has a current.
std::optional<std::int64_t> signedByStatus(const std::optional<std::int64_t>& value,
                                           const std::string& status) {
  if (!isSound(value)) {
    return std::nullopt;
  }
  if (status == "Charging" || status == "Discharging") {
    return status == "Charging" ? std::abs(*value) : -std::abs(*value);
  }
  return *value == 0 ? value : std::nullopt;
}

/// In microwatts. Some batteries report the power, others only voltage and current.
std::optional<std::int64_t> powerOf(const PowerSupply& battery) {
  if (battery.batteryPower || !isSound(battery.batteryVoltage) ||
      !isSound(battery.batteryCurrent)) {
    return battery.batteryPower;
  }
  constexpr double micro = 1e6;
  return std::llround(static_cast<double>(*battery.batteryVoltage) *
                      static_cast<double>(*battery.batteryCurrent) / micro);
}

void addThousandth(const char* key, const std::optional<std::int64_t>& value, json& entry) {
  if (value) {
    entry[key] = *value / 1000;
  }
}

void addIfKnown(const char* key, const std::optional<std::int64_t>& value, json& entry) {
  if (value) {
    entry[key] = *value;
  }
}

void addBattery(const PowerSupply& battery, json& entry) {
  if (!battery.status.empty() && battery.status != "Unknown") {
    entry["IsCharging"] = battery.status == "Charging";
    entry["FullyCharged"] = battery.status == "Full";
    entry["TamberlineStatus"] = battery.status;
  }
  if (!battery.behaviour.empty()) {
    entry["TamberlineBehaviour"] = battery.behaviour;
  }
  addIfKnown("CurrentCapacity", battery.capacityPercent, entry);
  addIfKnown("TamberlineLimitStart", battery.limitStartPercent, entry);
  addIfKnown("TamberlineLimitEnd", battery.limitEndPercent, entry);
  addThousandth("Amperage", signedByStatus(battery.batteryCurrent, battery.status), entry);
  addThousandth("BatteryPower", signedByStatus(powerOf(battery), battery.status),
                entry["PowerTelemetryData"]);
}

bool hasAdapters(const Machine& machine) {
  const auto& supplies = machine.powerSupplies;
  return std::any_of(supplies.begin(), supplies.end(),
                     [](const PowerSupply& supply) { return supply.isAdapter(); });
}

/// A computer without a battery is. Absent if there is no adapter and the battery does not tell.
std::optional<bool> isOnExternalPower(const Machine& machine) {
  const PowerSupply* battery = batteryOf(machine);
  if (battery == nullptr) {
    return true;
  }
  if (hasAdapters(machine)) {
    return adapterInUse(machine) != nullptr;
  }
  const bool tellsDirection = battery->status == "Charging" || battery->status == "Discharging";
  return tellsDirection ? std::optional(battery->status == "Charging") : std::nullopt;
}

void addAdapter(const PowerSupply& adapter, const Machine& machine, json& entry) {
  constexpr double milli = 1000;
  if (const auto rating = ratingInUse(machine)) {
    entry["AdapterDetails"] = {{"Watts", std::llround(*rating)}};
  }
  if (const auto watts = measuredWatts(adapter)) {
    entry["PowerTelemetryData"]["SystemPowerIn"] = std::llround(*watts * milli);
  }
}

} // namespace

void addCharging(const Machine& machine, json& entry) {
  const PowerSupply* battery = batteryOf(machine);
  if (battery == nullptr && !hasAdapters(machine)) {
    return;
  }
  entry["PowerTelemetryData"] = json::object();
  entry["BatteryInstalled"] = battery != nullptr;
  if (battery != nullptr) {
    addBattery(*battery, entry);
  }
  if (const auto isConnected = isOnExternalPower(machine)) {
    entry["ExternalConnected"] = *isConnected;
  }
  if (const PowerSupply* adapter = adapterInUse(machine)) {
    addAdapter(*adapter, machine, entry);
  }
}

} // namespace tamberline::sysfs
