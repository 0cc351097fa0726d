#include "registry/bounded_values.h"
#include "registry/power_offers.h"
#include "registry/probe_results.h"
#include "registry/registry_entries.h"

namespace tamberline {
namespace {

constexpr std::int64_t maxCredibleMa = maxCredibleAmps * 1000;
constexpr double milliwatts = 1000;

/// The registry writes a current out of the battery as a negative number, or as the unsigned number
/// with the same bits.
std::optional<std::int64_t> signedMember(PropertyListValue entry, std::string_view key,
                                         std::int64_t max) {
  return within(entry.member(key).wrappedInteger(), -max, max);
}

std::optional<double> wattsMember(PropertyListValue entry, std::string_view key) {
  const std::int64_t max = maxCredibleWatts * 1000;
  return dividedBy(within(entry.member(key).integer(), 0, max), milliwatts);
}

std::optional<std::int64_t> percentMember(PropertyListValue entry, std::string_view key) {
  return within(entry.member(key).integer(), 0, 100);
}

/// Older systems report the charge and its maximum in mAh, newer ones in percent with a maximum of
/// 100.
std::optional<std::int64_t> chargePercentIn(PropertyListValue entry) {
  constexpr std::int64_t maxCredibleCharge = 10'000'000;
  const auto charge = within(entry.member("CurrentCapacity").integer(), 0, maxCredibleCharge);
  const auto full = within(entry.member("MaxCapacity").integer(), 1, maxCredibleCharge);
  return charge ? within(*charge * 100 / full.value_or(100), 0, 100) : std::nullopt;
}

/// "UsbHvcMenu" lists fixed voltages, and "UsbHvcHvcIndex" is the index of the one in use.
std::vector<PowerOffer> menuIn(PropertyListValue details) {
  const auto chosen = details.member("UsbHvcHvcIndex").integer();
  std::vector<PowerOffer> offers;
  for (const PropertyListValue entry : details.member("UsbHvcMenu").elements()) {
    const auto volts = thousandthsMember(entry, "MaxVoltage", maxCredibleVolts);
    const auto amps = thousandthsMember(entry, "MaxCurrent", maxCredibleAmps);
    const auto index = entry.member("Index").integer();
    if (volts && amps && offers.size() < maxPowerOffers) {
      offers.push_back({.minVolts = *volts,
                        .maxVolts = *volts,
                        .amps = amps,
                        .isAgreed = index.has_value() && index == chosen});
    }
  }
  return offers;
}

std::optional<AdapterState> adapterIn(PropertyListValue details) {
  const AdapterState adapter{
      .ratedWatts = dividedBy(within(details.member("Watts").integer(), 1, maxCredibleWatts), 1),
      .agreedVolts = thousandthsMember(details, "AdapterVoltage", maxCredibleVolts),
      .agreedAmps = thousandthsMember(details, "Current", maxCredibleAmps),
      .offers = menuIn(details),
  };
  return adapter == AdapterState() ? std::nullopt : std::optional(adapter);
}

ChargingReasons reasonsIn(PropertyListValue charger) {
  return {.notCharging = charger.member("NotChargingReason").wrappedInteger(),
          .slowCharging = charger.member("SlowChargingReason").wrappedInteger(),
          .inhibited = charger.member("ChargerInhibitReason").wrappedInteger()};
}

void readBattery(PropertyListValue entry, ChargingState& state) {
  state.isCharging = entry.member("IsCharging").boolean();
  state.isFullyCharged = entry.member("FullyCharged").boolean();
  state.chargePercent = chargePercentIn(entry);
  state.batteryMa = signedMember(entry, "Amperage", maxCredibleMa);
  state.batteryWatts = dividedBy(
      signedMember(entry.member("PowerTelemetryData"), "BatteryPower", maxCredibleWatts * 1000),
      milliwatts);
  const PropertyListValue charger = entry.member("ChargerData");
  state.wantedMa = within(charger.member("ChargingCurrent").integer(), 0, maxCredibleMa);
  state.reasons = reasonsIn(charger);
  // No Mac has these keys:
  state.limitStartPercent = percentMember(entry, "TamberlineLimitStart");
  state.limitEndPercent = percentMember(entry, "TamberlineLimitEnd");
  state.statusText = entry.member("TamberlineStatus").text().value_or("");
  state.behaviour = entry.member("TamberlineBehaviour").text().value_or("");
}

ChargingState readCharging(PropertyListValue entry) {
  const PropertyListValue telemetry = entry.member("PowerTelemetryData");
  ChargingState state{
      .isExternalPowerConnected = entry.member("ExternalConnected").boolean(),
      .hasBattery = entry.member("BatteryInstalled").boolean(),
      .inputWatts = wattsMember(telemetry, "SystemPowerIn"),
      .systemWatts = wattsMember(telemetry, "SystemLoad"),
  };
  if (state.hasBattery != false) {
    readBattery(entry, state);
  }
  if (state.isExternalPowerConnected != false) { // what it says of an earlier adapter may stay
    state.adapter = adapterIn(entry.member("AdapterDetails"));
  }
  return state;
}

} // namespace

std::optional<ChargingState> chargingIn(const PropertyList& dump) {
  std::optional<ChargingState> found;
  visitRegistryEntries(dump.root(), [&](PropertyListValue entry) {
    const bool isController = entry.member("ExternalConnected").boolean().has_value() ||
                              entry.member("BatteryInstalled").boolean().has_value();
    if (isController && !found) {
      found = readCharging(entry);
    }
  });
  return found;
}

} // namespace tamberline
