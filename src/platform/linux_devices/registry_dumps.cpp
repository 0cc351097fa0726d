#include "platform/linux_devices/registry_dumps.h"

#include "platform/linux_devices/adapters.h"
#include "platform/linux_devices/hub_halves.h"
#include "platform/linux_devices/physical_ports.h"
#include "platform/linux_devices/usb_locations.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

/// What is known of the data on one USB-C port.
struct PortData {
  bool isKnown = false; // firmware says which USB ports it is
  std::vector<std::string> transports = {};
};

PortData dataOn(int number, const Machine& machine, const PhysicalPorts& ports) {
  PortData data;
  for (const auto& [address, port] : ports.portOfUsbPort) {
    if (port == number) {
      data.isKnown = true;
      const auto device = machine.usb.devices.find(address);
      if (device != machine.usb.devices.end()) {
        data.transports.emplace_back(device->second.isSuperSpeed() ? "USB3" : "USB2");
      }
    }
  }
  constexpr std::int64_t usb4Generation = 4;
  for (const RouterAddress& router : ports.ports.at(number).routers) {
    const bool isUsb4 = machine.thunderbolt.routers.at(router).generation == usb4Generation;
    data.transports.emplace_back(isUsb4 ? "USB4" : "CIO");
  }
  return data;
}

bool isKnownConnection(const TypecPort& port, const PortData& data) {
  return port.partner &&
         (port.partner->hasVideo || !data.transports.empty() || port.role == PowerRole::sink ||
          (port.role == PowerRole::source && data.isKnown));
}

json portControllerEntry(int number, const TypecPort& port, PortData data) {
  json entry = {{"PortNumber", number + 1},
                {"PortDescription", "Port-USB-C@" + std::to_string(number + 1)},
                {"PortTypeDescription", "USB-C"},
                {"ConnectionActive", isKnownConnection(port, data)},
                {"ActiveCable", port.cable && port.cable->isActive},
                {"OpticalCable", port.cable && port.cable->isOptical}};
  if (port.partner) {
    if (port.partner->hasVideo) {
      data.transports.emplace_back("DisplayPort");
    }
    data.transports.emplace_back("CC");
    if (port.role != PowerRole::sink) { // an adapter has none
      entry["IOAccessoryID"] = port.partner->productId;
    }
  }
  entry["TransportsActive"] = std::move(data.transports);
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

} // namespace

json portControllerDump(const Machine& machine) {
  const PhysicalPorts ports = physicalPortsOf(machine);
  json entries = json::array();
  for (const auto& [number, port] : machine.typecPorts) {
    entries.push_back(portControllerEntry(number, port, dataOn(number, machine, ports)));
  }
  return entries;
}

json portPowerDump(const Machine& machine) {
  json details = json::array();
  for (const PowerSupply& supply : machine.powerSupplies) {
    const auto number = typecPortOf(supply, machine);
    const auto watts = wattsNow(supply);
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
  return json::array({json{{"PowerOutDetails", std::move(details)}}});
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
  json entries = json::array();
  for (const auto& [address, container] : containersOfHubHalves(machine.usb)) {
    entries.push_back({{"locationID", locations.at(address)}, {"kUSBContainerID", container}});
  }
  return entries;
}

json powerSourceDump(const Machine& machine) {
  json details = json::array();
  for (const auto& [number, port] : machine.typecPorts) {
    while (details.size() < static_cast<std::size_t>(number)) {
      details.push_back(""); // the place of a port that does not exist
    }
    details.push_back(fedEntry(port));
  }
  return json::array({json{{"FedDetails", std::move(details)},
                           {"BestAdapterIndex", chargingPort(machine).value_or(0)}}});
}

} // namespace tamberline::sysfs
