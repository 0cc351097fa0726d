#include "base/text.h"
#include "model/usb_records.h"
#include "platform/linux/sysfs/report/physical_ports.h"
#include "platform/linux/sysfs/report/report_sections.h"
#include "platform/linux/sysfs/report/usb_identifiers.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

/// The records recognise a controller of the computer's own ports by this name.
constexpr const char* ownPortController = "T8112USBXHCI";

std::string hexadecimal(std::uint32_t number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%08x", number);
  return text.data();
}

/// The report has no token above 10 Gb/s; such a speed is written as text.
std::string speedToken(const std::string& megabitsPerSecond) {
  static constexpr std::array<std::pair<std::string_view, const char*>, 6> tokens = {{
      {"1.5", "low_speed"},
      {"12", "full_speed"},
      {"480", "high_speed"},
      {"5000", "super_speed"},
      {"10000", "super_speed_plus"},
      {"20000", "20 Gb/s"},
  }};
  for (const auto& [megabits, token] : tokens) {
    if (megabitsPerSecond == megabits) {
      return token;
    }
  }
  return {};
}

/// The report has no name for buses slower than USB 2.0.
std::string busName(const UsbDevice& rootHub) {
  const std::int64_t megabits = parseDecimal(rootHub.megabitsPerSecond).value_or(0);
  if (megabits >= 10000) {
    return "USB31Bus";
  }
  return megabits >= 5000 ? "USB30Bus" : "USB20Bus";
}

std::string shownName(const UsbDevice& device) {
  if (!device.name.empty()) {
    return device.name;
  }
  return device.isHub ? unnamedHub : "USB Device " + device.vendorId + ":" + device.productId;
}

void addText(json& object, const char* key, const std::string& text) {
  if (!text.empty()) {
    object[key] = text;
  }
}

/// Adds a speed for which the report has neither a token nor a bus name.
void addActualSpeed(const char* key, const UsbDevice& device, json& object) {
  constexpr std::int64_t maxMegabitsOfTokens = 10'000;
  if (parseDecimal(device.megabitsPerSecond).value_or(0) > maxMegabitsOfTokens) {
    object[key] = device.megabitsPerSecond;
  }
}

class UsbSection {
public:
  explicit UsbSection(const Machine& machine)
      : usb_(machine.usb), ports_(physicalPortsOf(machine)),
        locations_(usbLocations(machine.usb, ports_)) {
    for (const auto& [address, device] : usb_.devices) {
      if (!address.isRootHub() && !isOnPortOfCase(address)) {
        devicesBelow_[attachedTo(address)].push_back(address);
      }
    }
  }

  json buses() const {
    json buses = json::array();
    std::set<int> numbers;
    for (const auto& [address, device] : usb_.devices) {
      if (numbers.insert(address.bus).second) {
        addBus(UsbAddress{address.bus}, buses);
      }
    }
    return buses;
  }

private:
  bool isOnPortOfCase(const UsbAddress& address) const {
    return ports_.portOfUsbPort.contains(address);
  }

  /// The hub, or the bus if the hub was removed while the machine was read.
  UsbAddress attachedTo(const UsbAddress& address) const {
    const UsbAddress hub = address.parent();
    return usb_.devices.contains(hub) ? hub : UsbAddress{address.bus};
  }

  void addBus(const UsbAddress& root, json& buses) const {
    std::vector<UsbAddress> onPortsOfCase;
    bool hasPortOfCase = false;
    bool hasOtherPort = false;
    for (const auto& [address, port] : usb_.ports) {
      if (address.bus == root.bus) {
        const bool isOfCase = isOnPortOfCase(address);
        hasPortOfCase = hasPortOfCase || isOfCase;
        hasOtherPort = hasOtherPort || (!isOfCase && address.parent() == root);
        if (isOfCase && usb_.devices.contains(address)) {
          onPortsOfCase.push_back(address);
        }
      }
    }
    if (hasPortOfCase) {
      buses.push_back(bus(root, std::string(ownPortController) + " ", onPortsOfCase));
    }
    const std::vector<UsbAddress> others = devicesBelow(root);
    if (hasOtherPort || !others.empty() || !hasPortOfCase) {
      buses.push_back(bus(root, "", others));
    }
  }

  json bus(const UsbAddress& root, const std::string& controllerPrefix,
           const std::vector<UsbAddress>& devices) const {
    const auto found = usb_.devices.find(root);
    const UsbDevice rootHub = found == usb_.devices.end() ? UsbDevice() : found->second;
    std::string controller = rootHub.name;
    if (!rootHub.serialNumber.empty()) {
      controller += " " + rootHub.serialNumber;
    }
    json bus = {{"_name", busName(rootHub)},
                {"host_controller", controllerPrefix + controller},
                {"_items", items(devices)}};
    addActualSpeed("tamberline_max_mbps", rootHub, bus);
    if (rootHub.isOnBuiltInController) {
      bus["tamberline_is_built_in"] = "TRUE";
    }
    return bus;
  }

  json items(const std::vector<UsbAddress>& addresses) const {
    json items = json::array();
    for (const UsbAddress& address : addresses) {
      items.push_back(item(address));
    }
    return items;
  }

  json item(const UsbAddress& address) const {
    const UsbDevice& device = usb_.devices.at(address);
    json item = {{"_name", shownName(device)},
                 {"location_id", hexadecimal(locations_.at(address))},
                 {"device_speed", speedToken(device.megabitsPerSecond)}};
    addActualSpeed("tamberline_mbps", device, item);
    addText(item, "manufacturer", device.manufacturer);
    addText(item, "serial_num", device.serialNumber);
    if (!device.vendorId.empty()) {
      item["vendor_id"] = "0x" + device.vendorId;
      item["product_id"] = "0x" + device.productId;
    }
    if (device.ratedMa) {
      item["bus_power_used"] = std::to_string(*device.ratedMa);
    }
    if (!device.volumes.empty()) {
      item["Media"] = json::array({json{{"volumes", volumeEntries(device.volumes)}}});
    }
    item["_items"] = items(devicesBelow(address));
    return item;
  }

  std::vector<UsbAddress> devicesBelow(const UsbAddress& address) const {
    const auto found = devicesBelow_.find(address);
    return found == devicesBelow_.end() ? std::vector<UsbAddress>() : found->second;
  }

  const UsbTopology& usb_;
  PhysicalPorts ports_;
  std::map<UsbAddress, std::uint32_t> locations_;
  std::map<UsbAddress, std::vector<UsbAddress>> devicesBelow_;
};

} // namespace

json volumeEntries(const std::vector<Volume>& volumes) {
  json entries = json::array();
  for (const Volume& volume : volumes) {
    entries.push_back({{"_name", volume.name}, {"mount_point", volume.mountPoint}});
  }
  return entries;
}

json usbSection(const Machine& machine) {
  return {{usbSectionKey, UsbSection(machine).buses()}};
}

} // namespace tamberline::sysfs
