#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_folders.h"
#include "platform/linux/sysfs/read/device_readers.h"

#include <string>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

/// Some batteries report charge, others energy.
std::optional<std::int64_t> readChargeOrEnergy(const fs::path& folder, const std::string& what) {
  const auto charge = readNumber(folder / ("charge_" + what));
  return charge ? charge : readNumber(folder / ("energy_" + what));
}

void readBattery(const fs::path& folder, PowerSupply& supply) {
  supply.status = readTextOrNothing(folder / "status");
  supply.health = readTextOrNothing(folder / "health");
  supply.capacityPercent = readNumber(folder / "capacity");
  supply.cycleCount = readNumber(folder / "cycle_count");
  supply.fullCharge = readChargeOrEnergy(folder, "full");
  supply.fullChargeByDesign = readChargeOrEnergy(folder, "full_design");
  supply.batteryVoltage = readNumber(folder / "voltage_now");
  supply.batteryCurrent = readNumber(folder / "current_now");
  supply.batteryPower = readNumber(folder / "power_now");
  supply.limitStartPercent = readNumber(folder / "charge_control_start_threshold");
  supply.limitEndPercent = readNumber(folder / "charge_control_end_threshold");
  supply.behaviour = readChoice(folder / "charge_behaviour");
}

/// Reads what kind of supply it is and whether it is online. The supplies of USB-C ports always
/// belong to the computer, although some kernels mark them as a device's if they charge something
/// else.
PowerSupply readKind(const fs::path& folder) {
  PowerSupply supply{
      .name = folder.filename().string(),
      .type = readTextOrNothing(folder / "type"),
  };
  supply.belongsToDevice =
      !supply.reportsContract() && readTextOrNothing(folder / "scope") == "Device";
  supply.isOnline = supply.isAdapter() && readNumber(folder / "online").value_or(0) > 0;
  return supply;
}

/// Some drivers write "0" instead of a text that they do not have.
std::string readName(const fs::path& file) {
  const std::string name = readTextOrNothing(file);
  return name == "0" ? std::string() : name;
}

PowerSupply readSupply(const fs::path& folder) {
  PowerSupply supply = readKind(folder);
  supply.controller = owningDevice(folder);
  if (supply.isBattery()) {
    readBattery(folder, supply);
  } else if (supply.isAdapter()) {
    supply.modelName = readName(folder / "model_name");
    supply.manufacturer = readName(folder / "manufacturer");
    supply.voltageNow = readNumber(folder / "voltage_now");
    supply.voltageMax = readNumber(folder / "voltage_max");
    supply.voltageMaxDesign = readNumber(folder / "voltage_max_design");
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
    supplies.push_back(readSupply(folder / name));
  }
  return supplies;
}

bool isOnExternalPower(const fs::path& sysfs) {
  const fs::path folder = classFolder(sysfs, "power_supply");
  bool hasBattery = false;
  for (const std::string& name : namesIn(folder)) {
    const PowerSupply supply = readKind(folder / name);
    if (supply.isOnline) {
      return true;
    }
    hasBattery = hasBattery || supply.isBattery();
  }
  return !hasBattery;
}

} // namespace tamberline::sysfs
