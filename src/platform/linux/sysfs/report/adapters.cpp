#include "platform/linux/sysfs/report/adapters.h"

#include "base/text.h"

#include <algorithm>
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
  constexpr double maxCredibleWatts = 10'000;
  if (microvolts.value_or(0) <= 0 || microamperes.value_or(0) <= 0) {
    return std::nullopt;
  }
  const double watts =
      static_cast<double>(*microvolts) * static_cast<double>(*microamperes) / microSquared;
  return watts <= maxCredibleWatts ? std::optional(watts) : std::nullopt;
}

/// Some kernels decode the last offer as a fixed voltage although it is a voltage range, so they
/// read voltage and current from bits that mean something else. This reassembles the bits. Three
/// bits of the range's upper end are left, which identify one of four ranges in the standard. Each
/// range has a nominal voltage at which the adapter offers its full current.
std::optional<double> wattsOfMisreadRange(std::int64_t microvolts, std::int64_t microamperes) {
  constexpr std::int64_t microvoltsPerStep = 50'000;
  constexpr std::int64_t microamperesPerStep = 10'000;
  if (microvolts % microvoltsPerStep != 0 || microamperes % microamperesPerStep != 0) {
    return std::nullopt;
  }
  const auto voltageBits = static_cast<std::uint64_t>(microvolts / microvoltsPerStep);
  const auto currentBits = static_cast<std::uint64_t>(microamperes / microamperesPerStep);
  if (voltageBits > 0x3FFU || currentBits > 0x3FFU) {
    return std::nullopt;
  }
  const std::uint64_t offer = (voltageBits << 10U) | currentBits;
  const std::uint64_t minTenthsOfVolts = (offer >> 8U) & 0xFFU;
  const std::uint64_t endOfMax = (offer >> 17U) & 0x7U;
  const double amperes = static_cast<double>(offer & 0x7FU) * 0.05;
  constexpr std::uint64_t usualMin = 33;
  constexpr std::uint64_t otherMin = 50;
  if ((minTenthsOfVolts != usualMin && minTenthsOfVolts != otherMin) || (offer & 0x10080U) != 0) {
    return std::nullopt;
  }
  struct Range {
    std::uint64_t maxTenthsOfVolts;
    double volts;
  };
  for (const Range range : {Range{59, 5}, Range{110, 9}, Range{160, 15}, Range{210, 20}}) {
    if ((range.maxTenthsOfVolts & 0x7U) == endOfMax) {
      return range.volts * amperes;
    }
  }
  return std::nullopt;
}

} // namespace

/// UCSI supplies are named after their controller, followed by the port's number on it, counted
/// from 1. Supplies of Chromebooks have a fixed name, followed by the port's own number. Other
/// drivers have one supply and one port.
std::optional<int> typecPortOf(const PowerSupply& supply, const Machine& machine) {
  constexpr std::string_view chromebookPrefix = "CROS_USBPD_CHARGER";
  if (supply.name.starts_with(chromebookPrefix)) {
    const auto number = parseDecimal(std::string_view(supply.name).substr(chromebookPrefix.size()));
    const auto& known = machine.typecPorts;
    const auto port = std::find_if(known.begin(), known.end(),
                                   [&](const auto& entry) { return number == entry.first; });
    return port == known.end() ? std::nullopt : std::optional(port->first);
  }
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
        (chosen == nullptr || ratedWatts(supply) > ratedWatts(*chosen))) {
      chosen = &supply;
    }
  }
  return chosen;
}

const PowerSupply* batteryOf(const Machine& machine) {
  const auto& supplies = machine.powerSupplies;
  const auto found = std::find_if(supplies.begin(), supplies.end(),
                                  [](const PowerSupply& supply) { return supply.isBattery(); });
  return found == supplies.end() ? nullptr : &*found;
}

std::optional<int> chargingPort(const Machine& machine) {
  const PowerSupply* adapter = adapterInUse(machine);
  if (adapter == nullptr) {
    return std::nullopt;
  }
  if (const auto port = typecPortOf(*adapter, machine)) {
    return port;
  }
  std::optional<int> strongest;
  std::optional<double> maxWatts;
  for (const auto& [number, port] : machine.typecPorts) {
    if (port.partner && port.role == PowerRole::sink &&
        (!strongest || port.partner->offeredWatts > maxWatts)) {
      strongest = number;
      maxWatts = port.partner->offeredWatts;
    }
  }
  return strongest;
}

std::optional<double> measuredWatts(const PowerSupply& supply) {
  return supply.reportsContract() ? std::nullopt : product(supply.voltageNow, supply.currentNow);
}

std::optional<double> ratedWatts(const PowerSupply& supply) {
  const auto contract =
      supply.reportsContract() ? product(supply.voltageNow, supply.currentNow) : std::nullopt;
  const auto told =
      product(supply.voltageMax ? supply.voltageMax : supply.voltageMaxDesign, supply.currentMax);
  const bool isMisread = supply.reportsContract() && told && supply.voltageNow > supply.voltageMax;
  const auto rated = isMisread ? wattsOfMisreadRange(*supply.voltageMax, *supply.currentMax) : told;
  // An adapter never agrees to more than it offers, so a lower rating is wrong.
  return rated && contract && *contract > *rated ? std::nullopt : rated;
}

std::optional<double> ratingInUse(const Machine& machine) {
  const PowerSupply* adapter = adapterInUse(machine);
  if (adapter == nullptr) {
    return std::nullopt;
  }
  const auto port = chargingPort(machine);
  const auto offered = port && machine.typecPorts.at(*port).partner
                           ? machine.typecPorts.at(*port).partner->offeredWatts
                           : std::nullopt;
  return offered ? offered : ratedWatts(*adapter);
}

std::optional<Contract> contractOn(int number, const Machine& machine) {
  constexpr std::int64_t defaultCurrent = 100'000; // what USB grants every device
  const TypecPort& port = machine.typecPorts.at(number);
  for (const PowerSupply& supply : machine.powerSupplies) {
    const bool isInUse = supply.isOnline == (port.role == PowerRole::sink);
    if (supply.reportsContract() && port.partner && isInUse &&
        typecPortOf(supply, machine) == number && product(supply.voltageNow, supply.currentNow) &&
        *supply.currentNow > defaultCurrent) {
      return Contract{.millivolts = *supply.voltageNow / 1000,
                      .milliamperes = *supply.currentNow / 1000};
    }
  }
  return std::nullopt;
}

} // namespace tamberline::sysfs
