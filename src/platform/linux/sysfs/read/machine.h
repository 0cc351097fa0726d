// A snapshot of a machine's devices as the kernel reports them, in plain values.
#pragma once

#include "platform/linux/sysfs/read/cable_identity.h"
#include "platform/linux/sysfs/read/usb_address.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// The location of a port on the case, according to firmware. Several ports may have the same
/// location.
using PhysicalLocation = std::string;

/// A mounted file system.
struct Volume {
  std::string name;
  std::string mountPoint;
};

/// What a device's descriptors say about its speed, in Mb/s. Absent values are unknown.
struct UsbCapabilities {
  /// The highest speed of one lane that it lists.
  std::optional<std::int64_t> provenMbps = {};
  /// The speed that it can never exceed.
  std::optional<std::int64_t> limitMbps = {};

  friend bool operator==(const UsbCapabilities&, const UsbCapabilities&) = default;
};

/// Texts are empty if the device has none.
struct UsbDevice {
  std::string name = {};
  std::string manufacturer = {};
  std::string vendorId = {};  // four hexadecimal digits
  std::string productId = {}; // four hexadecimal digits
  std::string serialNumber = {};
  std::string megabitsPerSecond = {}; // as the kernel writes it: "480", "1.5"
  std::optional<std::int64_t> ratedMa = {};
  bool isHub = false;
  /// A video adapter appears as a billboard if it could not switch to video.
  bool isBillboard = false;
  /// For a root hub: whether its controller is built in, not part of something plugged in.
  bool isOnBuiltInController = false;
  /// The container in its descriptors; also absent if they cannot be read.
  std::optional<std::string> descriptorContainerId = {};
  /// The USB version in its descriptor: 0x0210 is 2.1.
  std::optional<std::int64_t> usbVersion = {};
  /// Absent if the kernel does not provide the descriptors that have it.
  std::optional<UsbCapabilities> capabilities = {};
  /// Whether the computer uses it; false if it is blocked.
  std::optional<bool> isAuthorized = {};
  std::vector<Volume> volumes = {};

  /// Whether it is connected through the wires that USB 3 added.
  bool isSuperSpeed() const;
};

struct UsbPort {
  std::optional<int> connector = {};   // number of the USB-C port that firmware links it to
  std::optional<UsbAddress> peer = {}; // the port of another bus in the same receptacle
  std::optional<PhysicalLocation> location = {};
  bool isHardwired = false; // to something inside the case
  /// How often it was switched off because too much current flowed.
  std::optional<std::int64_t> overCurrentCount = {};
  /// The state of the device on it, such as "configured"; empty if the kernel does not report it.
  std::string state = {};
};

/// Both are keyed by the address of the device, or of a device that would be plugged into the port.
struct UsbTopology {
  std::map<UsbAddress, UsbDevice> devices;
  std::map<UsbAddress, UsbPort> ports;
};

/// The position of a router in a Thunderbolt or USB4 domain. The route has one byte for the
/// downstream port of each router on the way, the host's in the lowest; 0 is the host.
struct RouterAddress {
  int domain = 0;
  std::uint64_t route = 0;

  bool isHost() const { return route == 0; }
  int hostPort() const { return static_cast<int>(route & 0xFFU); }
  RouterAddress parent() const;

  // NOLINTNEXTLINE(modernize-use-nullptr): false alarm in the generated comparison with 0
  friend auto operator<=>(const RouterAddress&, const RouterAddress&) = default;
};

/// One direction of a link. The text is empty if the kernel does not report it.
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

/// Texts are empty if the kernel does not report them.
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
  std::vector<Usb4Port> hostPorts; // sorted by domain and number
};

enum class PowerOfferKind : std::uint8_t { fixed, variable, battery, programmable };

/// One of the powers that a source offers or a sink takes. The kind "battery" has a power, the
/// others have a current.
struct PowerOffer {
  PowerOfferKind kind = PowerOfferKind::fixed;
  std::int64_t minMillivolts = 0;
  std::int64_t maxMillivolts = 0;
  std::optional<std::int64_t> milliamperes = {};
  std::optional<std::int64_t> milliwatts = {};

  friend bool operator==(const PowerOffer&, const PowerOffer&) = default;
};

enum class PowerRole : std::uint8_t { unknown, source, sink };

/// Whether a partner offers or uses a video mode.
enum class PartnerVideo : std::uint8_t { none, offered, active };

/// A partner that is an accessory rather than a device, such as analog headphones.
enum class PartnerAccessory : std::uint8_t { none, audio, debug };

struct TypecPartner {
  std::int64_t vendorId = 0;
  std::int64_t productId = 0;
  PartnerVideo video = PartnerVideo::none;
  PartnerAccessory accessory = PartnerAccessory::none;
  /// Whether it supports other uses of the wires than USB.
  bool hasAlternateModes = false;
  bool knowsThunderbolt = false;
  /// The max power that it offers; absent if it offers none or does not report it.
  std::optional<double> offeredWatts = {};
  std::vector<PowerOffer> offers = {};
  /// Of the four lanes; absent if unknown.
  std::optional<std::int64_t> videoLanes = {};
  /// Whether there is a screen behind it; absent if unknown.
  std::optional<bool> isScreenPresent = {};
};

struct TypecCable {
  bool isActive = false;
  bool isOptical = false;
  bool isPassive = false; // neither if the controller does not report it
  std::string plug = {};  // "type-c", "captive"
  CableIdentity identity = {};
};

/// A USB-C port. Ports have the numbers that the kernel gives them.
struct TypecPort {
  PowerRole role = PowerRole::unknown;
  bool isDualRole = false;
  /// The current in mA that it offers at 5 V.
  std::optional<std::int64_t> offeredMa = {};
  /// The powers that it takes.
  std::vector<PowerOffer> intake = {};
  std::string powerMode = {}; // "default", "1.5A", "3.0A", "usb_power_delivery"
  std::optional<TypecPartner> partner = {};
  std::optional<TypecCable> cable = {};
  std::optional<PhysicalLocation> location = {};
  /// The path of the controller's device, which is also the parent of its power supplies.
  std::string controller = {};
};

/// Numbers are in microvolts, microamperes and so on, as the kernel reports them.
struct PowerSupply {
  std::string name = {};
  std::string type = {}; // "Battery", "Mains", "USB"
  std::string modelName = {};
  std::string manufacturer = {};
  bool belongsToDevice = false; // such as the battery of a mouse
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
  /// What a battery measures, whatever its sign.
  std::optional<std::int64_t> batteryVoltage = {};
  std::optional<std::int64_t> batteryCurrent = {};
  std::optional<std::int64_t> batteryPower = {};
  /// The charge in percent below which charging starts, and at which it stops.
  std::optional<std::int64_t> limitStartPercent = {};
  std::optional<std::int64_t> limitEndPercent = {};
  std::string behaviour = {};  // of charging: "auto", "inhibit-charge"
  std::string controller = {}; // the path of its parent device

  bool isBattery() const;
  bool isAdapter() const;
  /// Whether voltage and current are what both ends of a USB-C cable agreed on, not a measurement.
  bool reportsContract() const;
};

struct Machine {
  UsbTopology usb;
  ThunderboltTopology thunderbolt;
  std::map<int, TypecPort> typecPorts; // by number
  std::vector<PowerSupply> powerSupplies;
};

} // namespace tamberline::sysfs
