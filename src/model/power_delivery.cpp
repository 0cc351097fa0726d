#include "model/power_delivery.h"

#include <algorithm>

namespace tamberline {
namespace {

/// A programmable range ends above its nominal voltage, so that the loss in the cable can be made
/// up for.
double nominalVolts(double maxVolts) {
  for (const double volts : {20.0, 15.0, 9.0, 5.0}) {
    if (maxVolts >= volts) {
      return volts;
    }
  }
  return maxVolts;
}

} // namespace

double PowerOffer::watts() const {
  if (givenWatts) {
    return *givenWatts;
  }
  const double volts = kind == PowerOfferKind::programmable ? nominalVolts(maxVolts) : maxVolts;
  // A varying voltage is sure of the power at its lowest.
  return (kind == PowerOfferKind::variable ? minVolts : volts) * amps.value_or(0);
}

std::optional<double> maxWattsOf(const std::vector<PowerOffer>& offers) {
  const auto most = std::max_element(
      offers.begin(), offers.end(),
      [](const PowerOffer& left, const PowerOffer& right) { return left.watts() < right.watts(); });
  return most == offers.end() ? std::nullopt : std::optional(most->watts());
}

std::optional<double> CableRatings::maxWatts() const {
  return maxAmps && maxVolts ? std::optional(*maxAmps * *maxVolts) : std::nullopt;
}

std::optional<double> CableRatings::maxGbps() const {
  constexpr double fastestWithoutSecondLane = 5;
  if (!gbpsOfLane || *gbpsOfLane <= fastestWithoutSecondLane) {
    return gbpsOfLane;
  }
  return *gbpsOfLane * 2;
}

} // namespace tamberline
