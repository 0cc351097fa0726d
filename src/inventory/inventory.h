#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

struct InventoryVolume {
  std::string name;
  std::string mountPoint;

  friend bool operator==(const InventoryVolume&, const InventoryVolume&) = default;
};

/// A node of the port tree with the facts that can be compared between two machines, or two states
/// of one. Texts are empty and numbers absent if the document has none.
struct InventoryItem {
  enum class Kind : std::uint8_t {
    port,
    thunderboltDevice,
    usbBus,
    usbDevice,
    adapter,
    chargingOnly,
  };

  Kind kind = Kind::usbDevice;
  /// The identifier and the local key of the node in the port tree.
  std::string id = {};
  std::string localKey = {};
  /// The index of the item above; absent at the top of the tree.
  std::optional<std::size_t> parent = {};
  /// As people know it.
  std::string name = {};
  /// Such as "0x05ac", in lower case, or a token.
  std::string vendorID = {};
  std::string productID = {};
  /// Of a Thunderbolt device, its unique identifier.
  std::string serialNumber = {};
  std::string containerID = {};
  /// The number of the port that it is or that it is on; absent for what is on no numbered port.
  std::optional<std::int64_t> portNumber = {};
  bool isConnected = true;
  /// The negotiated speed of its link, and the greatest speed that the port allows there.
  std::optional<double> speedGbps = {};
  std::optional<double> maxGbps = {};
  /// The declared draw of a device.
  std::optional<std::int64_t> ratedMa = {};
  /// What a port delivers, as measured, and what both ends agreed on.
  std::optional<double> measuredWatts = {};
  std::optional<double> agreedWatts = {};
  /// The rating of an adapter, and what it says it delivers.
  std::optional<std::int64_t> ratedWatts = {};
  std::optional<std::int64_t> deliveredWatts = {};
  std::vector<InventoryVolume> volumes = {};

  bool isDevice() const { return kind == Kind::usbDevice || kind == Kind::thunderboltDevice; }
};

/// What is attached to a machine: every node of its port tree, each one before those below it.
using Inventory = std::vector<InventoryItem>;

/// From an inspection document, which may come from another version of the program or from anyone:
/// missing and mistyped members count as absent, and nodes nested deeper than any port tree are
/// left out.
Inventory inventoryOf(const nlohmann::json& document);

/// What is the same wherever the item is: by its serial number or an identifier. Empty if it has
/// neither.
std::string identityOf(const InventoryItem& item);

/// The way from the port to the item above this one, such as "Thunderbolt Port 1 › Dock".
std::string placeOf(const Inventory& inventory, const InventoryItem& item);

/// The item's port in words; empty if it is on none.
std::string portLabelOf(const InventoryItem& item);

/// Such as "10 Gb/s" or "480 Mb/s".
std::string speedText(double gbps);

/// The name of the kind in JSON, such as "usbDevice".
const char* nameOf(InventoryItem::Kind kind);

} // namespace tamberline
