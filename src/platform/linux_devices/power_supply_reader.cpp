#include "platform/linux_devices/power_supply_reader.h"

#include "platform/linux_devices/attribute_files.h"
#include "platform/linux_devices/device_folders.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

/// Some batteries count charge, others energy.
std::optional<std::int64_t> readChargeOrEnergy(const fs::path& folder, const std::string& what) {
  const auto charge = readNumber(folder / ("charge_" + what));
  return charge ? charge : readNumber(folder / ("energy_" + what));
}

PowerSupply readSupply(const fs::path& folder, const std::string& name, std::string type) {
  PowerSupply supply{
      .name = name,
      .type = std::move(type),
      .modelName = readTextOrNothing(folder / "model_name"),
      .manufacturer = readTextOrNothing(folder / "manufacturer"),
      .belongsToDevice = readTextOrNothing(folder / "scope") == "Device",
      .isOnline = readNumber(folder / "online").value_or(0) > 0,
      .controller = owningDevice(folder),
  };
  if (supply.isBattery()) {
    supply.status = readTextOrNothing(folder / "status");
    supply.health = readTextOrNothing(folder / "health");
    supply.capacityPercent = readNumber(folder / "capacity");
    supply.cycleCount = readNumber(folder / "cycle_count");
    supply.fullCharge = readChargeOrEnergy(folder, "full");
    supply.fullChargeByDesign = readChargeOrEnergy(folder, "full_design");
  } else if (supply.isAdapter()) {
    supply.voltageNow = readNumber(folder / "voltage_now");
    supply.voltageMax = readNumber(folder / "voltage_max");
    supply.currentNow = readNumber(folder / "current_now");
    supply.currentMax = readNumber(folder / "current_max");
  }
  return supply;
}

} // namespace

std::vector<PowerSupply> readPowerSupplies(const fs::path& sysfs) {
  const fs::path folder = classFolder(sysfs, "power_supply");
  std::vector<PowerSupply> supplies;
  for (const std::string& name : namesIn(folder)) {
    if (auto type = readText(folder / name / "type")) {
      supplies.push_back(readSupply(folder / name, name, std::move(*type)));
    }
  }
  return supplies;
}

bool isOnExternalPower(const std::vector<PowerSupply>& supplies) {
  const auto isOnlineAdapter = [](const PowerSupply& supply) {
    return supply.isAdapter() && supply.isOnline;
  };
  return std::any_of(supplies.begin(), supplies.end(), isOnlineAdapter) ||
         std::none_of(supplies.begin(), supplies.end(),
                      [](const PowerSupply& supply) { return supply.isBattery(); });
}

} // namespace tamberline::sysfs
