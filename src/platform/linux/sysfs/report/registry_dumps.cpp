#include "platform/linux/sysfs/report/registry_dumps.h"

#include "base/text.h"
#include "platform/linux/sysfs/report/adapters.h"
#include "platform/linux/sysfs/report/charging_entry.h"
#include "platform/linux/sysfs/report/partners.h"
#include "platform/linux/sysfs/report/physical_ports.h"
#include "platform/linux/sysfs/report/port_details_entry.h"
#include "platform/linux/sysfs/report/usb_identifiers.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

json describedPort(int number) {
  return {{"PortNumber", number + 1},
          {"PortDescription", "Port-USB-C@" + std::to_string(number + 1)},
          {"PortTypeDescription", "USB-C"}};
}

json portControllerEntry(int number, const Machine& machine, const PortUse& use,
                         const PhysicalPorts& ports) {
  const TypecPort& port = machine.typecPorts.at(number);
  json entry = describedPort(number);
  entry["ConnectionActive"] = use.isKnown();
  entry["ActiveCable"] = port.cable && port.cable->isActive;
  entry["OpticalCable"] = port.cable && port.cable->isOptical;
  std::vector<std::string> transports = use.dataTransports;
  if (port.partner) {
    if (use.showsVideo) {
      transports.emplace_back("DisplayPort");
    }
    transports.emplace_back("CC");
    if (!use.powersComputer) { // an adapter has none
      entry["IOAccessoryID"] = port.partner->productId;
    }
    entry["TamberlinePartner"] = partnerWord(port, use);
    if (const auto contract = contractOn(number, machine)) {
      entry["TamberlineAgreedMillivolts"] = contract->millivolts;
      entry["TamberlineAgreedMilliamperes"] = contract->milliamperes;
    }
  }
  entry["TransportsActive"] = std::move(transports);
  addPortDetails(number, machine, use, ports, entry);
  return entry;
}

/// The second entry of a port whose partner powers the computer and also has data or video, such as
/// a dock.
json adapterEntry(int number) {
  json entry = describedPort(number);
  entry["ConnectionActive"] = true;
  entry["TransportsActive"] = {"CC"};
  return entry;
}

json littleEndian(std::int64_t number) {
  std::vector<std::uint8_t> bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes.push_back(
        static_cast<std::uint8_t>((static_cast<std::uint64_t>(number) >> shift) & 0xFFU));
  }
  return json::binary(std::move(bytes));
}

std::int64_t thousandth(std::optional<std::int64_t> number) {
  return number.value_or(0) / 1000;
}

bool isFeeding(const Machine& machine, int number) {
  const TypecPort& port = machine.typecPorts.at(number);
  return port.partner && port.role == PowerRole::source;
}

json fedEntry(const TypecPort& port) {
  json entry = {{"FedExternalConnected", port.partner ? 1 : 0},
                {"FedDualRolePower", port.isDualRole ? 1 : 0},
                {"FedPortPowerRole", port.role == PowerRole::sink ? 0 : 1}};
  if (port.partner) {
    entry["FedVendorID"] = port.partner->vendorId;
    entry["FedProductID"] = port.partner->productId;
  }
  return entry;
}

/// The half of a USB 3 hub that runs at USB 2 speed lists the speeds of the whole hub. If the other
/// half is known, it is as fast as it can be; if there may be one, nothing is certain.
UsbCapabilities capabilitiesOf(const UsbAddress& address, const UsbTopology& usb,
                               const std::map<UsbAddress, std::string>& containers) {
  constexpr std::int64_t highSpeedMbps = 480;
  const UsbDevice& hub = usb.devices.at(address);
  if (!hub.isHub || hub.isSuperSpeed()) {
    return hub.capabilities.value_or(UsbCapabilities());
  }
  if (containers.contains(address)) {
    return {.limitMbps = highSpeedMbps};
  }
  const bool mayHaveOtherHalf =
      std::any_of(usb.devices.begin(), usb.devices.end(), [&](const auto& entry) {
        return entry.second.isHub && entry.second.isSuperSpeed() && !entry.first.isRootHub() &&
               entry.second.vendorId == hub.vendorId && !containers.contains(entry.first);
      });
  return mayHaveOtherHalf ? UsbCapabilities() : hub.capabilities.value_or(UsbCapabilities());
}

void addAbility(const UsbDevice& device, const UsbCapabilities& capabilities, json& entry) {
  constexpr double bitsPerMegabit = 1e6;
  constexpr double maxCredibleMegabits = 1e6;
  const double megabits = parseNumber(device.megabitsPerSecond).value_or(0);
  if (megabits > 0 && megabits <= maxCredibleMegabits) {
    entry["UsbLinkSpeed"] = std::llround(megabits * bitsPerMegabit);
  }
  for (const auto& [key, value] : {std::pair("bcdUSB", device.usbVersion),
                                   {"TamberlineProvenMbps", capabilities.provenMbps},
                                   {"TamberlineLimitMbps", capabilities.limitMbps}}) {
    if (value) {
      entry[key] = *value;
    }
  }
  if (device.isAuthorized) {
    entry["TamberlineIsAuthorized"] = *device.isAuthorized;
  }
}

} // namespace

json portControllerDump(const Machine& machine) {
  const PhysicalPorts ports = physicalPortsOf(machine);
  json entries = json::array();
  for (const auto& [number, port] : machine.typecPorts) {
    const PortUse use = useOf(number, machine, ports);
    entries.push_back(portControllerEntry(number, machine, use, ports));
    if (use.powersComputer && (use.showsVideo || !use.dataTransports.empty())) {
      entries.push_back(adapterEntry(number));
    }
  }
  return entries;
}

json portPowerDump(const Machine& machine) {
  json details = json::array();
  for (const PowerSupply& supply : machine.powerSupplies) {
    const auto number = typecPortOf(supply, machine);
    const auto watts = measuredWatts(supply);
    if (number && watts && isFeeding(machine, *number)) {
      constexpr double hundredths = 100;
      details.push_back({{"PortIndex", *number + 1},
                         {"Watts", std::llround(*watts * hundredths)},
                         {"ConfiguredVoltage", thousandth(supply.voltageNow)},
                         {"ConfiguredCurrent", thousandth(supply.currentMax)},
                         {"AdapterVoltage", thousandth(supply.voltageNow)},
                         {"Current", thousandth(supply.currentNow)}});
    }
  }
  json entry = {{"PowerOutDetails", std::move(details)}};
  addCharging(machine, entry);
  return json::array({std::move(entry)});
}

json deviceTreeDump(const Machine& machine) {
  json children = json::array();
  for (const auto& [number, port] : machine.typecPorts) {
    if (port.offeredMa) {
      children.push_back({{"IORegistryEntryName", "port-usb-c@" + std::to_string(number + 1)},
                          {"port-number", littleEndian(number + 1)},
                          {"acc_bm3-current-limit", littleEndian(*port.offeredMa)}});
    }
  }
  return {{"IORegistryEntryChildren", std::move(children)}};
}

json usbHostDeviceDump(const Machine& machine) {
  const auto locations = usbLocations(machine.usb, physicalPortsOf(machine));
  const auto containers = containersOfHubHalves(machine.usb);
  json entries = json::array();
  for (const auto& [address, device] : machine.usb.devices) {
    if (!address.isRootHub()) {
      json entry = {{"locationID", locations.at(address)}};
      if (const auto container = containers.find(address); container != containers.end()) {
        entry["kUSBContainerID"] = container->second;
      }
      addAbility(device, capabilitiesOf(address, machine.usb, containers), entry);
      entries.push_back(std::move(entry));
    }
  }
  return entries;
}

json powerSourceDump(const Machine& machine) {
  json details = json::array();
  for (const auto& [number, port] : machine.typecPorts) {
    while (details.size() < static_cast<std::size_t>(number)) {
      details.push_back(""); // placeholder for a port that does not exist
    }
    details.push_back(fedEntry(port));
  }
  return json::array({json{{"FedDetails", std::move(details)},
                           {"BestAdapterIndex", chargingPort(machine).value_or(0)}}});
}

} // namespace tamberline::sysfs
