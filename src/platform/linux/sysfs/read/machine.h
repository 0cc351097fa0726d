// What the kernel says of a machine, as plain values: one snapshot of its devices.
#pragma once

#include "platform/linux/sysfs/read/usb_address.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// Where on the case firmware says that a port is. Several ports may be at the same place.
using PhysicalLocation = std::string;

/// A mounted file system.
struct Volume {
  std::string name;
  std::string mountPoint;
};

/// Texts are empty when the device has none.
struct UsbDevice {
  std::string name = {};
  std::string manufacturer = {};
  std::string vendorId = {};  // four hexadecimal digits
  std::string productId = {}; // four hexadecimal digits
  std::string serialNumber = {};
  std::string megabitsPerSecond = {}; // as the kernel writes it: "480", "1.5"
  std::optional<std::int64_t> ratedMa = {};
  bool isHub = false;
  /// What a video adapter is when it could not switch to video.
  bool isBillboard = false;
  /// Of a root hub: nothing that can be plugged in brought it.
  bool isOnBuiltInController = false;
  /// What its descriptors say it belongs to; absent also where they cannot be read.
  std::optional<std::string> descriptorContainerId = {};
  std::vector<Volume> volumes = {};

  /// Whether it is connected by the wires that USB 3 added.
  bool isSuperSpeed() const;
};

struct UsbPort {
  std::optional<int> connector = {};   // the number of the USB-C port that firmware ties it to
  std::optional<UsbAddress> peer = {}; // the port of another bus in the same receptacle
  std::optional<PhysicalLocation> location = {};
  bool isHardwired = false; // to something inside the case
};

/// Both by the address of the device or of what would hang on the port.
struct UsbTopology {
  std::map<UsbAddress, UsbDevice> devices;
  std::map<UsbAddress, UsbPort> ports;
};

/// A place in a Thunderbolt or USB4 domain. The route holds the downstream port of each router on
/// the way, a byte for each, the host's in the lowest; 0 is the host.
struct RouterAddress {
  int domain = 0;
  std::uint64_t route = 0;

  bool isHost() const { return route == 0; }
  int hostPort() const { return static_cast<int>(route & 0xFFU); }
  RouterAddress parent() const;

  // NOLINTNEXTLINE(modernize-use-nullptr): takes the comparison that the compiler makes for a 0
  friend auto operator<=>(const RouterAddress&, const RouterAddress&) = default;
};

/// One way of a link. The text is empty where the kernel says nothing.
struct LinkWay {
  std::string speedOfLane = {}; // "20.0 Gb/s"
  std::optional<std::int64_t> lanes = {};
};

/// A drive that a router connects to the computer's PCI bus.
struct Drive {
  std::string name = {};
  std::string serialNumber = {};
  std::vector<Volume> volumes = {};
};

/// Texts are empty where the kernel says nothing.
struct Router {
  std::string name = {};
  std::string vendor = {};
  std::string uid = {};
  std::string firmwareVersion = {};
  LinkWay fromHost = {}; // what the device receives
  LinkWay toHost = {};
  std::optional<std::int64_t> generation = {}; // 4 is USB4; absent for another computer
  /// Whether its PCI functions may be used; absent for another computer.
  std::optional<bool> isAuthorized = {};
  std::vector<Drive> drives = {};
};

/// A USB4 port of a host.
struct Usb4Port {
  RouterAddress host;
  int number = 0;
  std::optional<int> connector = {};
  std::optional<PhysicalLocation> location = {};
};

struct ThunderboltTopology {
  std::map<RouterAddress, Router> routers;
  std::vector<Usb4Port> hostPorts; // in the order of domain and number
};

enum class PowerRole : std::uint8_t { unknown, source, sink };

/// What the kernel knows of a partner's way to show pictures.
enum class PartnerVideo : std::uint8_t { none, offered, active };

/// A partner that is no device but wires: headphones, say.
enum class PartnerAccessory : std::uint8_t { none, audio, debug };

struct TypecPartner {
  std::int64_t vendorId = 0;
  std::int64_t productId = 0;
  PartnerVideo video = PartnerVideo::none;
  PartnerAccessory accessory = PartnerAccessory::none;
  /// Whether it knows ways to use the wires other than for USB.
  bool hasAlternateModes = false;
  bool knowsThunderbolt = false;
  /// The most that it offers; absent when it offers nothing or does not tell.
  std::optional<double> offeredWatts = {};
};

struct TypecCable {
  bool isActive = false;
  bool isOptical = false;
};

/// A USB-C port; its number is the kernel's.
struct TypecPort {
  PowerRole role = PowerRole::unknown;
  bool isDualRole = false;
  /// The current in mA that it offers at 5 V.
  std::optional<std::int64_t> offeredMa = {};
  std::optional<TypecPartner> partner = {};
  std::optional<TypecCable> cable = {};
  std::optional<PhysicalLocation> location = {};
  /// The path of the controller's device, below which its power supplies stand.
  std::string controller = {};
};

/// Numbers are in microvolts, microamperes and so on, as the kernel gives them.
struct PowerSupply {
  std::string name = {};
  std::string type = {}; // "Battery", "Mains", "USB"
  std::string modelName = {};
  std::string manufacturer = {};
  bool belongsToDevice = false; // the battery of a mouse, say
  bool isOnline = false;
  std::string status = {}; // of a battery: "Charging", "Full"
  std::string health = {};
  std::optional<std::int64_t> capacityPercent = {};
  std::optional<std::int64_t> cycleCount = {};
  std::optional<std::int64_t> fullCharge = {};
  std::optional<std::int64_t> fullChargeByDesign = {};
  std::optional<std::int64_t> voltageNow = {};
  std::optional<std::int64_t> voltageMax = {};
  std::optional<std::int64_t> voltageMaxDesign = {};
  std::optional<std::int64_t> currentNow = {};
  std::optional<std::int64_t> currentMax = {};
  std::string controller = {}; // the path of the device below which it stands

  bool isBattery() const;
  bool isAdapter() const;
  /// Whether voltage and current are what both ends of a USB-C cable agreed on, and no measurement.
  bool reportsContract() const;
};

struct Machine {
  UsbTopology usb;
  ThunderboltTopology thunderbolt;
  std::map<int, TypecPort> typecPorts; // by number
  std::vector<PowerSupply> powerSupplies;
};

} // namespace tamberline::sysfs
