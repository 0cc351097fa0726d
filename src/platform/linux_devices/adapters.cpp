#include "platform/linux_devices/adapters.h"

#include "base/text.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline::sysfs {
namespace {

std::vector<int> portsOfController(const std::string& controller, const Machine& machine) {
  std::vector<int> ports;
  for (const auto& [number, port] : machine.typecPorts) {
    if (!controller.empty() && port.controller == controller) {
      ports.push_back(number);
    }
  }
  return ports;
}

std::optional<double> product(std::optional<std::int64_t> microvolts,
                              std::optional<std::int64_t> microamperes) {
  constexpr double microSquared = 1e12;
  constexpr double mostCredibleWatts = 10'000;
  if (microvolts.value_or(0) <= 0 || microamperes.value_or(0) <= 0) {
    return std::nullopt;
  }
  const double watts =
      static_cast<double>(*microvolts) * static_cast<double>(*microamperes) / microSquared;
  return watts <= mostCredibleWatts ? std::optional(watts) : std::nullopt;
}

} // namespace

/// The driver of UCSI counts the ports of its controller from 1 and has the number behind the
/// controller's name; other drivers have one supply and one port.
std::optional<int> typecPortOf(const PowerSupply& supply, const Machine& machine) {
  const std::vector<int> ports = portsOfController(supply.controller, machine);
  const std::string prefix =
      "ucsi-source-psy-" + std::filesystem::path(supply.controller).filename().string();
  if (supply.name.starts_with(prefix)) {
    const auto number = parseDecimal(std::string_view(supply.name).substr(prefix.size()));
    return number && *number >= 1 && *number <= static_cast<std::int64_t>(ports.size())
               ? std::optional(ports[static_cast<std::size_t>(*number) - 1])
               : std::nullopt;
  }
  return ports.size() == 1 ? std::optional(ports.front()) : std::nullopt;
}

const PowerSupply* adapterInUse(const Machine& machine) {
  const PowerSupply* chosen = nullptr;
  for (const PowerSupply& supply : machine.powerSupplies) {
    if (supply.isAdapter() && supply.isOnline &&
        (chosen == nullptr || mostWatts(supply) > mostWatts(*chosen))) {
      chosen = &supply;
    }
  }
  return chosen;
}

std::optional<int> chargingPort(const Machine& machine) {
  const PowerSupply* adapter = adapterInUse(machine);
  if (adapter == nullptr) {
    return std::nullopt;
  }
  if (const auto port = typecPortOf(*adapter, machine)) {
    return port;
  }
  for (const auto& [number, port] : machine.typecPorts) {
    if (port.partner && port.role == PowerRole::sink) {
      return number;
    }
  }
  return std::nullopt;
}

std::optional<double> wattsNow(const PowerSupply& supply) {
  return product(supply.voltageNow, supply.currentNow);
}

std::optional<double> mostWatts(const PowerSupply& supply) {
  return product(supply.voltageMax, supply.currentMax);
}

} // namespace tamberline::sysfs
