#pragma once

#include "model/power_records.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// Why the charger does less than it could, as masks of the system. 0 means no reason; absent if
/// not reported. Few bits are known; the others must not be given a meaning.
struct ChargingReasons {
  static constexpr std::int64_t batteryIsFull = 1;
  static constexpr std::int64_t isHeldAtLimit = std::int64_t{1} << 24U; // a limit of 80 %
  static constexpr std::int64_t softwareInhibits = std::int64_t{1} << 55U;

  std::optional<std::int64_t> notCharging = {};
  std::optional<std::int64_t> slowCharging = {};
  std::optional<std::int64_t> inhibited = {};

  /// Whether any of the masks contains the bit.
  bool contains(std::int64_t bit) const;

  friend bool operator==(const ChargingReasons&, const ChargingReasons&) = default;
};

/// The adapter that powers the computer, as the battery's controller or the kernel sees it.
struct AdapterState {
  std::optional<double> ratedWatts = {};
  /// The agreed voltage and the max current at it; each absent if not reported.
  std::optional<double> agreedVolts = {};
  std::optional<double> agreedAmps = {};
  /// What it offers; empty if not reported.
  std::vector<PowerOffer> offers = {};
  /// The USB-C port that it is on, from 1; absent if it is on another socket or that is unknown.
  std::optional<std::int64_t> portNumber = {};

  friend bool operator==(const AdapterState&, const AdapterState&) = default;
};

/// How the computer is powered and what its battery does.
struct ChargingState {
  std::optional<bool> isExternalPowerConnected = {};
  /// False if the computer has no battery; the values of the battery are absent then.
  std::optional<bool> hasBattery = {};
  std::optional<bool> isCharging = {};
  std::optional<bool> isFullyCharged = {};
  std::optional<std::int64_t> chargePercent = {};
  /// Into the battery; negative while it drains.
  std::optional<std::int64_t> batteryMa = {};
  /// Into the battery; negative while it drains.
  std::optional<double> batteryWatts = {};
  /// What comes in now, measured.
  std::optional<double> inputWatts = {};
  /// What the computer uses now, without charging.
  std::optional<double> systemWatts = {};
  /// The current that the charger wants to feed into the battery.
  std::optional<std::int64_t> wantedMa = {};
  ChargingReasons reasons = {};
  /// The most that the computer takes on any of its ports.
  std::optional<double> maxIntakeWatts = {};
  /// The user's limits: charging starts below the first and stops at the second.
  std::optional<std::int64_t> limitStartPercent = {};
  std::optional<std::int64_t> limitEndPercent = {};
  /// The kernel's word, such as "Not charging"; empty if it has none.
  std::string statusText = {};
  /// The way of charging that is chosen, such as "inhibit-charge"; empty if not reported.
  std::string behaviour = {};
  /// Absent if none is connected or nothing about it is reported.
  std::optional<AdapterState> adapter = {};

  friend bool operator==(const ChargingState&, const ChargingState&) = default;
};

/// Adds what only the port controllers know: the port of the adapter if it can only be one, the
/// offers and the contract there if they are unknown, and the most that the computer takes.
void addPortFacts(const std::vector<HPMPort>& controllers, ChargingState& state);

/// What the partner on a USB-C port offers: from its controller, or from what is known about the
/// adapter if that is on this port.
const std::vector<PowerOffer>& offersOn(const HPMPort& port,
                                        const std::optional<ChargingState>& charging);

} // namespace tamberline
