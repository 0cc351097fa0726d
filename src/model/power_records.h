#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// The power adapter as the power report knows it. Texts are empty when the report has none.
struct ChargerInfo {
  std::string name = {};
  std::string manufacturer = {};
  /// From the adapter's name; absent when the name holds no wattage.
  std::optional<std::int64_t> ratedWatts = {};
  /// What the adapter reports delivering now; absent when it reports nothing.
  std::optional<std::int64_t> currentWatts = {};
  std::string hardwareVersion = {};
  std::string firmwareVersion = {};
  bool isConnected = false;
  bool isCharging = false;
  /// Set together with `portLabel` by the port tree, which knows the adapter's port.
  bool connectsViaUSBC = false;
  std::optional<std::string> portLabel = {};
  /// It powers the computer on none of the ports that are known: through a socket of its own, or
  /// through a USB-C port of which it is not known which (`connectsViaUSBC`).
  bool isOnNoKnownPort = false;

  friend bool operator==(const ChargerInfo&, const ChargerInfo&) = default;
};

/// The battery as the power report knows it.
struct BatteryInfo {
  std::int64_t stateOfCharge = 0; // percent
  bool isFullyCharged = false;
  bool isCharging = false;
  std::string health = {};
  /// The report's wording, such as "91%".
  std::string maxCapacityPercent = {};
  std::int64_t cycleCount = 0;

  friend bool operator==(const BatteryInfo&, const BatteryInfo&) = default;
};

/// What both ends of a USB-C connection agreed on: a voltage, and the most current at it. How much
/// flows is not known.
struct AgreedPower {
  double volts = 0;
  double amps = 0;

  double watts() const { return volts * amps; }

  friend bool operator==(const AgreedPower&, const AgreedPower&) = default;
};

/// What a port controller knows of a partner that shows itself neither as a device nor as the
/// adapter in use.
enum class PortPartner : std::uint8_t {
  none,
  audio,   // headphones on analogue wires
  debug,   // a debug accessory
  video,   // pictures can be shown through it
  source,  // it offers power that the computer does not take
  unknown, // something is there
};

/// One USB-C or MagSafe port as its port controller sees it.
struct HPMPort {
  std::int64_t portNumber = 0; // 1-based
  bool isMagSafe = false;
  bool connectionActive = false;
  bool hasData = false;
  bool hasVideo = false;
  bool activeCable = false;
  bool opticalCable = false;
  /// -1 when the controller reports none, which is what tells a power adapter from a device that
  /// only draws power.
  std::int64_t accessoryID = -1;
  PortPartner partner = PortPartner::none;
  /// Absent where nothing was agreed on or the controller does not tell.
  std::optional<AgreedPower> agreedPower = {};

  bool isCharger() const;
  bool isChargeOnlyDevice() const;
  /// Absent for a passive cable or none.
  std::optional<std::string> cableLabel() const;
  std::string label() const;

  friend bool operator==(const HPMPort&, const HPMPort&) = default;

private:
  bool carriesPowerOnly() const;
};

/// The first controller of a USB-C port, 1-based; null when there is none. A MagSafe port can have
/// the same number.
const HPMPort* usbcController(const std::vector<HPMPort>& controllers, std::int64_t portNumber);

/// One port as the battery controller sees it.
struct FedPortState {
  std::int64_t index = 0; // 0-based
  bool isConnected = false;
  bool isDualRole = false;
  std::int64_t vendorID = 0;
  std::int64_t productID = 0;
  std::int64_t powerRole = 1;

  friend bool operator==(const FedPortState&, const FedPortState&) = default;
};

/// The live power that one port delivers.
struct PortPowerOut {
  double usedWatts = 0;
  double allocatedWatts = 0;
  double volts = 0;
  double amps = 0;

  friend bool operator==(const PortPowerOut&, const PortPowerOut&) = default;
};

} // namespace tamberline
