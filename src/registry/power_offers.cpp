#include "registry/power_offers.h"

#include "registry/bounded_values.h"

namespace tamberline {
namespace {

constexpr WordTable<PowerOfferKind, 4> offerKinds = {
    {{"fixed", PowerOfferKind::fixed},
     {"variable", PowerOfferKind::variable},
     {"battery", PowerOfferKind::battery},
     {"programmable", PowerOfferKind::programmable}}};

std::optional<PowerOffer> powerOfferIn(PropertyListValue entry) {
  const auto kind = wordMember(entry, "Kind", offerKinds);
  const auto minVolts = thousandthsMember(entry, "MinMillivolts", maxCredibleVolts);
  const auto maxVolts = thousandthsMember(entry, "MaxMillivolts", maxCredibleVolts);
  const auto amps = thousandthsMember(entry, "Milliamperes", maxCredibleAmps);
  const auto watts = thousandthsMember(entry, "Milliwatts", maxCredibleWatts);
  const bool isLimitedByWatts = kind == PowerOfferKind::battery;
  if (!kind || !minVolts || !maxVolts || *minVolts > *maxVolts ||
      !(isLimitedByWatts ? watts : amps)) {
    return std::nullopt;
  }
  return PowerOffer{.kind = *kind,
                    .minVolts = *minVolts,
                    .maxVolts = *maxVolts,
                    .amps = isLimitedByWatts ? std::nullopt : amps,
                    .givenWatts = isLimitedByWatts ? watts : std::nullopt,
                    .isAgreed = entry.member("IsAgreed").boolean() == true};
}

} // namespace

std::vector<PowerOffer> powerOffersIn(PropertyListValue list) {
  std::vector<PowerOffer> offers;
  for (const PropertyListValue entry : list.elements()) {
    const auto offer = powerOfferIn(entry);
    if (offer && offers.size() < maxPowerOffers) {
      offers.push_back(*offer);
    }
  }
  return offers;
}

} // namespace tamberline
