#include "platform/linux/sysfs/report/port_details_entry.h"

#include "platform/linux/sysfs/report/adapters.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

const char* nameOf(PowerOfferKind kind) {
  switch (kind) {
  case PowerOfferKind::fixed:
    return "fixed";
  case PowerOfferKind::variable:
    return "variable";
  case PowerOfferKind::battery:
    return "battery";
  case PowerOfferKind::programmable:
    return "programmable";
  }
  return "";
}

json offerEntry(const PowerOffer& offer, bool isAgreed) {
  json entry = {{"Kind", nameOf(offer.kind)},
                {"MinMillivolts", offer.minMillivolts},
                {"MaxMillivolts", offer.maxMillivolts}};
  if (offer.milliamperes) {
    entry["Milliamperes"] = *offer.milliamperes;
  }
  if (offer.milliwatts) {
    entry["Milliwatts"] = *offer.milliwatts;
  }
  if (isAgreed) {
    entry["IsAgreed"] = true;
  }
  return entry;
}

bool fits(const PowerOffer& offer, const Contract& contract) {
  constexpr std::int64_t roundingMillivolts = 50;
  constexpr std::int64_t roundingMilliamperes = 50;
  return contract.millivolts >= offer.minMillivolts - roundingMillivolts &&
         contract.millivolts <= offer.maxMillivolts + roundingMillivolts &&
         contract.milliamperes <= offer.milliamperes.value_or(0) + roundingMilliamperes;
}

/// The offer that a contract is about. A fixed voltage is more likely than a range that contains
/// it. Null if there is none or more than one of either.
const PowerOffer* agreedOffer(const std::vector<PowerOffer>& offers, const Contract& contract) {
  for (const PowerOfferKind kind : {PowerOfferKind::fixed, PowerOfferKind::programmable}) {
    const auto isCandidate = [&](const PowerOffer& offer) {
      return offer.kind == kind && fits(offer, contract);
    };
    const auto count = std::count_if(offers.begin(), offers.end(), isCandidate);
    if (count > 0) {
      return count == 1 ? &*std::find_if(offers.begin(), offers.end(), isCandidate) : nullptr;
    }
  }
  return nullptr;
}

json offerEntries(const std::vector<PowerOffer>& offers, const std::optional<Contract>& contract) {
  const PowerOffer* agreed = contract ? agreedOffer(offers, *contract) : nullptr;
  json entries = json::array();
  for (const PowerOffer& offer : offers) {
    entries.push_back(offerEntry(offer, &offer == agreed));
  }
  return entries;
}

json cableEntry(const TypecCable& cable) {
  json entry = json::object();
  if (cable.isActive || cable.isPassive) {
    entry["Kind"] = cable.isOptical ? "optical" : cable.isActive ? "active" : "passive";
  }
  entry["Plug"] = cable.plug;
  for (const auto& [key, value] : {std::pair("Milliamperes", cable.identity.maxMilliamperes),
                                   {"Millivolts", cable.identity.maxMillivolts},
                                   {"MegabitsOfLane", cable.identity.megabitsOfLane}}) {
    if (value) {
      entry[key] = *value;
    }
  }
  return entry;
}

json videoEntry(const TypecPartner& partner) {
  json entry = json::object();
  if (partner.videoLanes) {
    entry["Lanes"] = *partner.videoLanes;
  }
  if (partner.isScreenPresent) {
    entry["IsScreenPresent"] = *partner.isScreenPresent;
  }
  return entry;
}

/// Something is plugged in, but has not become a device. The states are those on the way to one.
bool isFailing(const UsbPort& port) {
  static constexpr std::array<std::string_view, 6> unfinished = {
      "attached", "powered", "reconnecting", "unauthenticated", "default", "addressed"};
  return std::find(unfinished.begin(), unfinished.end(), port.state) != unfinished.end();
}

/// What the USB ports in the receptacle noticed.
void addFailures(int number, const Machine& machine, const PhysicalPorts& ports, json& entry) {
  std::optional<std::int64_t> overCurrentCount;
  for (const auto& [address, portOfCase] : ports.portOfUsbPort) {
    const auto port = machine.usb.ports.find(address);
    if (portOfCase != number || port == machine.usb.ports.end()) {
      continue;
    }
    overCurrentCount = std::max(overCurrentCount, port->second.overCurrentCount);
    if (isFailing(port->second) && !machine.usb.devices.contains(address)) {
      entry["TamberlineIsFailing"] = true;
    }
  }
  if (overCurrentCount) {
    entry["TamberlineOverCurrentCount"] = *overCurrentCount;
  }
}

void addPartner(int number, const Machine& machine, const PortUse& use, json& entry) {
  const TypecPort& port = machine.typecPorts.at(number);
  // A contract in the other direction is about what the computer offers.
  const bool isTakingPower = port.role == PowerRole::sink;
  entry["TamberlineOffers"] =
      offerEntries(port.partner->offers,
                   isTakingPower ? contractOn(number, machine) : std::optional<Contract>());
  entry["TamberlinePowerMode"] = port.powerMode;
  if (use.showsVideo) {
    entry["TamberlineVideo"] = videoEntry(*port.partner);
  }
}

} // namespace

void addPortDetails(int number, const Machine& machine, const PortUse& use,
                    const PhysicalPorts& ports, json& entry) {
  const TypecPort& port = machine.typecPorts.at(number);
  entry["TamberlineIntake"] = offerEntries(port.intake, std::nullopt);
  if (port.partner) {
    addPartner(number, machine, use, entry);
  }
  if (port.cable) {
    entry["TamberlineCable"] = cableEntry(*port.cable);
  }
  addFailures(number, machine, ports, entry);
}

} // namespace tamberline::sysfs
