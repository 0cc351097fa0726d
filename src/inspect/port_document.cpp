#include "inspect/document_parts.h"

#include <optional>
#include <string_view>

namespace tamberline {
namespace {

template <typename Record>
Document recordOrNull(const std::optional<Record>& record) {
  return record ? describe(*record) : Document(nullptr);
}

Document nameOf(PortPartner partner) {
  switch (partner) {
  case PortPartner::none:
    return nullptr;
  case PortPartner::audio:
    return "audio";
  case PortPartner::debug:
    return "debug";
  case PortPartner::video:
    return "video";
  case PortPartner::source:
    return "source";
  case PortPartner::unknown:
    return "unknown";
  }
  return nullptr;
}

Document describeReceptacle(const ThunderboltReceptacle& receptacle) {
  return {
      {"number", orNull(receptacle.number)},
      {"isConnected", receptacle.port.isConnected()},
      {"link", recordOrNull(receptacle.port.link)},
  };
}

} // namespace

Document describePorts(const std::vector<ThunderboltBus>& buses,
                       const std::vector<HPMPort>& controllers,
                       const std::optional<ChargingState>& charging) {
  return listOf(buses, [&](const ThunderboltBus& bus) {
    const std::int64_t portNumber = bus.busNumber + 1;
    const HPMPort* known = usbcController(controllers, portNumber);
    const HPMPort controller = known == nullptr ? HPMPort() : *known;
    return Document{
        {"portNumber", portNumber},
        {"receptacles", listOf(bus.receptacles, describeReceptacle)},
        {"link", recordOrNull(bus.port.link)},
        {"partner", nameOf(controller.partner)},
        {"agreedPower", recordOrNull(controller.agreedPower)},
        {"offers", describeOffers(known == nullptr ? std::vector<PowerOffer>()
                                                   : offersOn(controller, charging))},
        {"intake", describeOffers(controller.details.intake)},
        {"powerMode", nameOf(controller.details.powerMode)},
        {"cable", recordOrNull(controller.details.cable)},
        {"video", recordOrNull(controller.details.video)},
        {"overCurrentCount", orNull(controller.details.overCurrentCount)},
        {"isFailing", controller.details.isFailing},
    };
  });
}

} // namespace tamberline
