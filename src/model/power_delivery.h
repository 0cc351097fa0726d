// What both ends of a USB-C connection can give and take, and what the cable between them can
// carry.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tamberline {

/// The forms in which a source offers power and a sink takes it.
enum class PowerOfferKind : std::uint8_t {
  fixed,        // one voltage
  variable,     // a source whose voltage varies within the range
  battery,      // the same, limited by watts
  programmable, // the sink chooses a voltage within the range (PPS)
};

/// One of the powers that a source offers or a sink takes.
struct PowerOffer {
  PowerOfferKind kind = PowerOfferKind::fixed;
  double minVolts = 0;
  double maxVolts = 0; // same as `minVolts` for a fixed voltage
  /// The max current; absent for the kind that is limited by watts.
  std::optional<double> amps = {};
  /// The max power of the kind that is limited by watts; absent for the others.
  std::optional<double> givenWatts = {};
  /// Whether both ends agreed on it. False if that is unknown.
  bool isAgreed = false;

  /// The max power. A programmable range counts with its nominal voltage, because its highest one
  /// is not available at the full current.
  double watts() const;

  friend bool operator==(const PowerOffer&, const PowerOffer&) = default;
};

/// Absent without offers.
std::optional<double> maxWattsOf(const std::vector<PowerOffer>& offers);

/// What both ends of a USB-C connection agreed on: a voltage and the max current at it. The actual
/// current is unknown.
struct AgreedPower {
  double volts = 0;
  double amps = 0;

  double watts() const { return volts * amps; }

  friend bool operator==(const AgreedPower&, const AgreedPower&) = default;
};

/// How the max current of a USB-C connection is determined.
enum class PowerMode : std::uint8_t {
  usbDefault,       // what USB grants: 0.5 or 0.9 A at 5 V
  onePointFiveAmps, // announced on a wire, at 5 V
  threeAmps,        // announced on a wire, at 5 V
  powerDelivery,    // negotiated
};

enum class CableKind : std::uint8_t { passive, active, optical };

/// Whether a cable ends in a plug or is fixed to a device.
enum class CablePlug : std::uint8_t { typeC, typeA, typeB, captive };

/// What a cable says about itself. Many cables and most controllers say nothing.
struct CableRatings {
  std::optional<CableKind> kind = {};
  std::optional<CablePlug> plug = {};
  std::optional<double> maxAmps = {};
  std::optional<double> maxVolts = {};
  /// The max speed of one lane: 0.48 (USB 2 only), 5, 10, 20 or 40.
  std::optional<double> gbpsOfLane = {};

  /// The max power; absent unless both current and voltage are known.
  std::optional<double> maxWatts() const;
  /// The speed that the cable is sold with: 0.48, 5, 20, 40 or 80. A USB 3 device with one lane
  /// gets `gbpsOfLane`, one with two lanes twice as much.
  std::optional<double> maxGbps() const;

  friend bool operator==(const CableRatings&, const CableRatings&) = default;
};

/// The pictures that go through a USB-C port.
struct VideoUse {
  /// How many of the four lanes carry video: 2 or 4; absent if unknown.
  std::optional<std::int64_t> lanes = {};
  /// Whether a screen is present at the other end; absent if unknown.
  std::optional<bool> isScreenPresent = {};

  friend bool operator==(const VideoUse&, const VideoUse&) = default;
};

/// What else a port controller and firmware know about a USB-C port and what is plugged into it.
struct PortDetails {
  /// The powers that what is attached offers; empty if it offers none or they are not reported.
  std::vector<PowerOffer> offers = {};
  /// The powers that the computer takes on this port; empty if not reported.
  std::vector<PowerOffer> intake = {};
  std::optional<PowerMode> powerMode = {};
  std::optional<CableRatings> cable = {};
  /// Absent if video does not use the port or that is not reported.
  std::optional<VideoUse> video = {};
  /// How often the port was switched off since the start because too much current flowed; absent if
  /// not reported.
  std::optional<std::int64_t> overCurrentCount = {};
  /// Something is plugged in and does not answer as a USB device.
  bool isFailing = false;

  friend bool operator==(const PortDetails&, const PortDetails&) = default;
};

} // namespace tamberline
