#include "inspect/document_parts.h"

namespace tamberline {
namespace {

Document nameOf(PowerOfferKind kind) {
  switch (kind) {
  case PowerOfferKind::fixed:
    return "fixed";
  case PowerOfferKind::variable:
    return "variable";
  case PowerOfferKind::battery:
    return "battery";
  case PowerOfferKind::programmable:
    return "programmable";
  }
  return nullptr;
}

Document nameOf(const std::optional<CableKind>& kind) {
  if (!kind) {
    return nullptr;
  }
  switch (*kind) {
  case CableKind::passive:
    return "passive";
  case CableKind::active:
    return "active";
  case CableKind::optical:
    return "optical";
  }
  return nullptr;
}

Document nameOf(const std::optional<CablePlug>& plug) {
  if (!plug) {
    return nullptr;
  }
  switch (*plug) {
  case CablePlug::typeC:
    return "typeC";
  case CablePlug::typeA:
    return "typeA";
  case CablePlug::typeB:
    return "typeB";
  case CablePlug::captive:
    return "captive";
  }
  return nullptr;
}

Document describe(const ChargingReasons& reasons) {
  return {
      {"notCharging", orNull(reasons.notCharging)},
      {"slowCharging", orNull(reasons.slowCharging)},
      {"inhibited", orNull(reasons.inhibited)},
  };
}

Document describe(const AdapterState& adapter) {
  return {
      {"ratedWatts", orNull(adapter.ratedWatts)}, {"agreedVolts", orNull(adapter.agreedVolts)},
      {"agreedAmps", orNull(adapter.agreedAmps)}, {"offers", describeOffers(adapter.offers)},
      {"portNumber", orNull(adapter.portNumber)},
  };
}

Document textOrNull(const std::string& text) {
  return text.empty() ? Document(nullptr) : Document(text);
}

} // namespace

Document nameOf(const std::optional<PowerMode>& mode) {
  if (!mode) {
    return nullptr;
  }
  switch (*mode) {
  case PowerMode::usbDefault:
    return "default";
  case PowerMode::onePointFiveAmps:
    return "1.5A";
  case PowerMode::threeAmps:
    return "3A";
  case PowerMode::powerDelivery:
    return "powerDelivery";
  }
  return nullptr;
}

Document describeOffers(const std::vector<PowerOffer>& offers) {
  return listOf(offers, [](const PowerOffer& offer) {
    return Document{
        {"kind", nameOf(offer.kind)}, {"minVolts", offer.minVolts}, {"maxVolts", offer.maxVolts},
        {"amps", orNull(offer.amps)}, {"watts", offer.watts()},     {"isAgreed", offer.isAgreed},
    };
  });
}

Document describe(const CableRatings& cable) {
  return {
      {"kind", nameOf(cable.kind)},           {"plug", nameOf(cable.plug)},
      {"maxAmps", orNull(cable.maxAmps)},     {"maxVolts", orNull(cable.maxVolts)},
      {"maxWatts", orNull(cable.maxWatts())}, {"gbpsOfLane", orNull(cable.gbpsOfLane)},
      {"maxGbps", orNull(cable.maxGbps())},
  };
}

Document describe(const VideoUse& video) {
  return {{"lanes", orNull(video.lanes)}, {"isScreenPresent", orNull(video.isScreenPresent)}};
}

Document describe(const ChargingState& state) {
  return {
      {"isExternalPowerConnected", orNull(state.isExternalPowerConnected)},
      {"hasBattery", orNull(state.hasBattery)},
      {"isCharging", orNull(state.isCharging)},
      {"isFullyCharged", orNull(state.isFullyCharged)},
      {"chargePercent", orNull(state.chargePercent)},
      {"batteryMa", orNull(state.batteryMa)},
      {"batteryWatts", orNull(state.batteryWatts)},
      {"inputWatts", orNull(state.inputWatts)},
      {"systemWatts", orNull(state.systemWatts)},
      {"wantedMa", orNull(state.wantedMa)},
      {"reasons", describe(state.reasons)},
      {"maxIntakeWatts", orNull(state.maxIntakeWatts)},
      {"limitStartPercent", orNull(state.limitStartPercent)},
      {"limitEndPercent", orNull(state.limitEndPercent)},
      {"status", textOrNull(state.statusText)},
      {"behaviour", textOrNull(state.behaviour)},
      {"adapter", state.adapter ? describe(*state.adapter) : Document(nullptr)},
  };
}

} // namespace tamberline
