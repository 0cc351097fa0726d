#pragma once

#include "model/power_delivery.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// The power adapter according to the power report. Texts are empty if the report has none.
struct ChargerInfo {
  std::string name = {};
  std::string manufacturer = {};
  /// From the adapter's name; absent if the name contains no wattage.
  std::optional<std::int64_t> ratedWatts = {};
  /// What the adapter says it delivers now; absent if it does not say.
  std::optional<std::int64_t> currentWatts = {};
  std::string hardwareVersion = {};
  std::string firmwareVersion = {};
  bool isConnected = false;
  bool isCharging = false;
  /// Set together with `portLabel` by the port tree, which knows the adapter's port.
  bool connectsViaUSBC = false;
  std::optional<std::string> portLabel = {};
  /// It powers the computer through none of the known ports: through a separate socket, or through
  /// an unknown USB-C port (`connectsViaUSBC`).
  bool isOnNoKnownPort = false;

  friend bool operator==(const ChargerInfo&, const ChargerInfo&) = default;
};

/// The battery according to the power report.
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

/// What a port controller knows about a partner that is neither listed as a device nor the adapter
/// in use.
enum class PortPartner : std::uint8_t {
  none,
  audio,   // analogue headphones
  debug,   // a debug accessory
  video,   // it can show pictures
  source,  // it offers power that the computer does not take
  unknown, // something is attached
};

/// One USB-C or MagSafe port according to its port controller.
struct HPMPort {
  std::int64_t portNumber = 0; // 1-based
  bool isMagSafe = false;
  bool connectionActive = false;
  bool hasData = false;
  bool hasVideo = false;
  bool activeCable = false;
  bool opticalCable = false;
  /// -1 if the controller reports none. This distinguishes a power adapter from a device that only
  /// draws power.
  std::int64_t accessoryID = -1;
  PortPartner partner = PortPartner::none;
  /// Absent if nothing was agreed on or the controller does not report it.
  std::optional<AgreedPower> agreedPower = {};
  PortDetails details = {};

  bool isCharger() const;
  bool isChargeOnlyDevice() const;
  /// Absent for a passive cable and for none.
  std::optional<std::string> cableLabel() const;
  std::string label() const;

  friend bool operator==(const HPMPort&, const HPMPort&) = default;

private:
  bool carriesPowerOnly() const;
};

/// The first controller of a USB-C port, 1-based; null if there is none. A MagSafe port may have
/// the same number.
const HPMPort* usbcController(const std::vector<HPMPort>& controllers, std::int64_t portNumber);

/// One port according to the battery controller.
struct FedPortState {
  std::int64_t index = 0; // 0-based
  bool isConnected = false;
  bool isDualRole = false;
  std::int64_t vendorID = 0;
  std::int64_t productID = 0;
  std::int64_t powerRole = 1;

  friend bool operator==(const FedPortState&, const FedPortState&) = default;
};

/// The measured power that one port delivers.
struct PortPowerOut {
  double usedWatts = 0;
  double allocatedWatts = 0;
  double volts = 0;
  double amps = 0;

  friend bool operator==(const PortPowerOut&, const PortPowerOut&) = default;
};

} // namespace tamberline
