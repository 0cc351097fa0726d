#include "inventory/inventory.h"

#include "base/letter_case.h"
#include "base/text.h"
#include "i18n/loc.h"
#include "model/usb_records.h"
#include "reports/json_values.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;
using Kind = InventoryItem::Kind;

constexpr std::array<std::pair<const char*, Kind>, 6> kinds = {
    {{"tbPort", Kind::port},
     {"tbDevice", Kind::thunderboltDevice},
     {"usbBus", Kind::usbBus},
     {"usbDevice", Kind::usbDevice},
     {"charger", Kind::adapter},
     {"chargingOnly", Kind::chargingOnly}}};

/// Absent for anything but a finite number above 0: the documents write 0 for an unknown speed.
std::optional<double> positiveNumber(const json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end() || !found->is_number()) {
    return std::nullopt;
  }
  const auto number = found->get<double>();
  return std::isfinite(number) && number > 0 ? std::optional(number) : std::nullopt;
}

std::string text(const json& object, const char* key) {
  return textMember(object, key, "");
}

/// "0x05AC  (Maker)" without the maker.
std::string numberOf(const std::string& identifier) {
  return lowerCased(identifier.substr(0, identifier.find(' ')));
}

/// The slower direction: what a transfer can count on.
std::optional<double> slowerGbps(const json& link) {
  const std::optional<double> transmit = positiveNumber(link, "transmitGbps");
  const std::optional<double> receive = positiveNumber(link, "receiveGbps");
  return transmit && receive ? std::min(*transmit, *receive) : (transmit ? transmit : receive);
}

std::vector<InventoryVolume> volumesOf(const json& device) {
  std::vector<InventoryVolume> volumes;
  for (const json& volume : objectsMember(device, "volumes")) {
    volumes.push_back({text(volume, "name"), text(volume, "mountPoint")});
  }
  return volumes;
}

/// What the document says about a port beside the tree, by the port's number.
struct PortFacts {
  std::optional<double> measuredWatts;
  std::optional<double> agreedWatts;
};
using FactsByPort = std::map<std::int64_t, PortFacts>;

FactsByPort factsByPort(const json& document) {
  FactsByPort facts;
  for (const auto& [key, power] : objectMember(document, "portPowerOut").items()) {
    const std::optional<std::int64_t> number = parseDecimal(key);
    if (number && power.is_object()) {
      facts[*number].measuredWatts = positiveNumber(power, "usedWatts").value_or(0);
    }
  }
  for (const json& port : objectsMember(document, "ports")) {
    const std::optional<std::int64_t> number = integerMember(port, "portNumber");
    if (number) {
      facts[*number].agreedWatts = positiveNumber(objectMember(port, "agreedPower"), "watts");
    }
  }
  return facts;
}

using SpeedByNode = std::map<std::string, double>;

void collectPortMaximums(const json& rows, SpeedByNode& maximums, int depth) {
  if (depth > maxReportNesting) {
    return;
  }
  for (const json& row : rows) {
    if (const auto maximum = positiveNumber(objectMember(row, "speedBar"), "portMaxGbps")) {
      maximums[text(row, "id")] = *maximum;
    }
    collectPortMaximums(objectsMember(row, "children"), maximums, depth + 1);
  }
}

/// What the panel shows as the maximum of each node's port.
SpeedByNode portMaximums(const json& document) {
  SpeedByNode maximums;
  for (const json& card : objectsMember(objectMember(document, "panel"), "cards")) {
    collectPortMaximums(objectsMember(card, "rows"), maximums, 0);
  }
  return maximums;
}

class Collector {
public:
  Collector(FactsByPort facts, SpeedByNode portMaximums)
      : facts_(std::move(facts)), portMaximums_(std::move(portMaximums)) {}

  void collect(const json& nodes, std::optional<std::size_t> parent, int depth) {
    if (depth > maxReportNesting) {
      return;
    }
    for (const json& node : nodes) {
      const auto* const kind = std::find_if(kinds.begin(), kinds.end(), [&](const auto& candidate) {
        return text(node, "kind") == candidate.first;
      });
      if (kind != kinds.end()) {
        collectNode(node, kind->second, parent, depth);
      }
    }
  }

  Inventory take() { return std::move(items_); }

private:
  void collectNode(const json& node, Kind kind, std::optional<std::size_t> parent, int depth) {
    InventoryItem item{
        .kind = kind, .id = text(node, "id"), .localKey = text(node, "localKey"), .parent = parent};
    if (parent) {
      item.portNumber = items_.at(*parent).portNumber;
    }
    describe(node, item);
    items_.push_back(std::move(item));
    collect(objectsMember(node, "children"), items_.size() - 1, depth + 1);
  }

  void describe(const json& node, InventoryItem& item) const {
    const auto maximum = portMaximums_.find(item.id);
    if (maximum != portMaximums_.end()) {
      item.maxGbps = maximum->second;
    }
    switch (item.kind) {
    case Kind::port:
      describePort(objectMember(node, "bus"), item);
      break;
    case Kind::thunderboltDevice:
      describeThunderboltDevice(objectMember(node, "device"), item);
      break;
    case Kind::usbBus:
      item.name = text(objectMember(node, "bus"), "displayName");
      break;
    case Kind::usbDevice:
      describeUSBDevice(node, item);
      break;
    case Kind::adapter:
      describeAdapter(objectMember(node, "charger"), item);
      break;
    case Kind::chargingOnly:
      item.name = Loc::chargingOnly();
      break;
    }
  }

  void describePort(const json& bus, InventoryItem& item) const {
    item.portNumber = integerMember(bus, "busNumber");
    item.name = portLabelOf(item);
    const auto connected = objectMember(bus, "port").find("isConnected");
    item.isConnected = connected != objectMember(bus, "port").end() && *connected == true;
    const auto facts = facts_.find(item.portNumber.value_or(0));
    if (facts != facts_.end()) {
      item.measuredWatts = facts->second.measuredWatts;
      item.agreedWatts = facts->second.agreedWatts;
    }
  }

  static void describeThunderboltDevice(const json& device, InventoryItem& item) {
    item.name = text(device, "name");
    item.vendorID = text(device, "vendorName");
    item.serialNumber = text(device, "uid");
    const std::optional<double> perLane = positiveNumber(device, "upstreamSpeedGbps");
    const double lanes = positiveNumber(device, "upstreamLanes").value_or(1);
    item.speedGbps = slowerGbps(objectMember(device, "link"));
    if (!item.speedGbps && perLane) {
      item.speedGbps = *perLane * lanes;
    }
  }

  static void describeUSBDevice(const json& node, InventoryItem& item) {
    const json& device = objectMember(node, "device");
    item.name = USBDevice{.name = text(device, "name")}.shownName();
    item.vendorID = numberOf(text(device, "vendorID"));
    item.productID = numberOf(text(device, "productID"));
    item.serialNumber = text(device, "serialNumber");
    item.containerID = text(device, "containerID");
    item.speedGbps = positiveNumber(device, "speedGbps");
    item.maxGbps = item.maxGbps ? item.maxGbps : positiveNumber(node, "busMaxGbps");
    item.ratedMa = integerMember(device, "busPowerUsed");
    item.volumes = volumesOf(device);
  }

  static void describeAdapter(const json& charger, InventoryItem& item) {
    item.name = text(charger, "name");
    item.ratedWatts = integerMember(charger, "ratedWatts");
    item.deliveredWatts = integerMember(charger, "currentWatts");
  }

  FactsByPort facts_;
  SpeedByNode portMaximums_;
  Inventory items_;
};

} // namespace

Inventory inventoryOf(const json& document) {
  Collector collector(factsByPort(document), portMaximums(document));
  collector.collect(objectsMember(document, "portTree"), std::nullopt, 0);
  return collector.take();
}

std::string identityOf(const InventoryItem& item) {
  if (item.kind == Kind::adapter) {
    return "adapter"; // a machine has one
  }
  if (!item.isDevice() || (item.serialNumber.empty() && item.containerID.empty())) {
    return {};
  }
  return joined({nameOf(item.kind), item.vendorID, item.productID,
                 item.serialNumber.empty() ? "container" : "serial",
                 item.serialNumber.empty() ? item.containerID : item.serialNumber},
                "\n");
}

std::string placeOf(const Inventory& inventory, const InventoryItem& item) {
  std::vector<std::string> names;
  for (std::optional<std::size_t> above = item.parent; above; above = inventory.at(*above).parent) {
    const InventoryItem& other = inventory.at(*above);
    if (other.kind != Kind::usbBus || !other.parent) {
      names.push_back(other.name);
    }
  }
  std::reverse(names.begin(), names.end());
  return joined(names, " › ");
}

std::string portLabelOf(const InventoryItem& item) {
  return item.portNumber ? Loc::thunderboltPort(*item.portNumber) : std::string();
}

std::string speedText(double gbps) {
  constexpr double megabitsPerGigabit = 1000;
  return gbps < 1 ? generalText(gbps * megabitsPerGigabit) + " Mb/s" : generalText(gbps) + " Gb/s";
}

const char* nameOf(Kind kind) {
  return std::find_if(kinds.begin(), kinds.end(),
                      [&](const auto& candidate) { return candidate.second == kind; })
      ->first;
}

} // namespace tamberline
