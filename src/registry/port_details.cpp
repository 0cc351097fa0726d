#include "registry/port_details.h"

#include "registry/bounded_values.h"
#include "registry/power_offers.h"

namespace tamberline {
namespace {

constexpr WordTable<PowerMode, 4> powerModes = {{{"default", PowerMode::usbDefault},
                                                 {"1.5A", PowerMode::onePointFiveAmps},
                                                 {"3.0A", PowerMode::threeAmps},
                                                 {"usb_power_delivery", PowerMode::powerDelivery}}};

constexpr WordTable<CableKind, 3> cableKinds = {{{"passive", CableKind::passive},
                                                 {"active", CableKind::active},
                                                 {"optical", CableKind::optical}}};

constexpr WordTable<CablePlug, 4> cablePlugs = {{{"type-c", CablePlug::typeC},
                                                 {"type-a", CablePlug::typeA},
                                                 {"type-b", CablePlug::typeB},
                                                 {"captive", CablePlug::captive}}};

std::optional<CableRatings> cableIn(PropertyListValue cable) {
  constexpr std::int64_t maxGbpsOfLane = 100;
  const CableRatings ratings{
      .kind = wordMember(cable, "Kind", cableKinds),
      .plug = wordMember(cable, "Plug", cablePlugs),
      .maxAmps = thousandthsMember(cable, "Milliamperes", maxCredibleAmps),
      .maxVolts = thousandthsMember(cable, "Millivolts", maxCredibleVolts),
      .gbpsOfLane = thousandthsMember(cable, "MegabitsOfLane", maxGbpsOfLane),
  };
  return ratings == CableRatings() ? std::nullopt : std::optional(ratings);
}

std::optional<VideoUse> videoIn(PropertyListValue video) {
  constexpr std::int64_t lanesOfCable = 4;
  return video.isDictionary()
             ? std::optional(
                   VideoUse{.lanes = within(video.member("Lanes").integer(), 1, lanesOfCable),
                            .isScreenPresent = video.member("IsScreenPresent").boolean()})
             : std::nullopt;
}

} // namespace

PortDetails portDetailsIn(PropertyListValue entry) {
  constexpr std::int64_t maxCount = 0xFFFFFFFF;
  return PortDetails{
      .offers = powerOffersIn(entry.member("TamberlineOffers")),
      .intake = powerOffersIn(entry.member("TamberlineIntake")),
      .powerMode = wordMember(entry, "TamberlinePowerMode", powerModes),
      .cable = cableIn(entry.member("TamberlineCable")),
      .video = videoIn(entry.member("TamberlineVideo")),
      .overCurrentCount = within(entry.member("TamberlineOverCurrentCount").integer(), 0, maxCount),
      .isFailing = entry.member("TamberlineIsFailing").boolean() == true,
  };
}

} // namespace tamberline
