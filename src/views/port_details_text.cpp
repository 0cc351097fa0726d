#include "views/port_details_text.h"

#include "base/text.h"
#include "i18n/loc.h"

#include <utility>

namespace tamberline {
namespace {

std::string offersText(const std::vector<PowerOffer>& offers) {
  std::vector<std::string> texts;
  for (const PowerOffer& offer : offers) {
    std::string text = offerText(offer);
    if (offer.isAgreed) {
      text.append(" (").append(Loc::agreed()).append(")");
    }
    texts.push_back(std::move(text));
  }
  return joined(texts, " · ");
}

std::string cableSpeedText(double gbps) {
  constexpr double usb2Gbps = 0.48;
  return gbps == usb2Gbps ? "USB 2" : generalText(gbps) + " Gb/s";
}

/// The voltage that every cable is made for is not worth a word.
std::string cableText(const CableRatings& cable) {
  constexpr double usualVolts = 20;
  std::vector<std::string> parts;
  if (cable.maxAmps) {
    parts.push_back(generalText(*cable.maxAmps) + " A");
  }
  if (cable.maxVolts.value_or(0) > usualVolts) {
    parts.push_back(generalText(*cable.maxVolts) + " V");
  }
  if (const auto gbps = cable.maxGbps()) {
    parts.push_back(cableSpeedText(*gbps));
  }
  if (cable.kind == CableKind::active) {
    parts.emplace_back(Loc::cableActive());
  } else if (cable.kind == CableKind::optical) {
    parts.emplace_back(Loc::cableOptical());
  }
  if (cable.plug == CablePlug::captive) {
    parts.emplace_back(Loc::cableCaptive());
  }
  return joined(parts, ", ");
}

std::string videoText(const VideoUse& video) {
  std::vector<std::string> parts;
  if (video.lanes) {
    parts.push_back(Loc::lanes(*video.lanes));
  }
  if (video.isScreenPresent == false) {
    parts.emplace_back(Loc::noScreen());
  }
  return joined(parts, ", ");
}

void append(std::string_view title, std::string text, std::vector<DetailLine>& lines) {
  if (!text.empty()) {
    lines.push_back({std::string(title), std::move(text)});
  }
}

void appendPower(const HPMPort& port, const std::optional<ChargingState>& charging,
                 std::vector<DetailLine>& lines) {
  const std::vector<PowerOffer>& offers = offersOn(port, charging);
  append(Loc::offers(), offersText(offers), lines);
  const auto intake = maxWattsOf(port.details.intake);
  if (intake && !offers.empty()) {
    append(Loc::maxIntake(), generalText(*intake) + " W", lines);
  }
}

} // namespace

std::string DetailLine::label() const {
  return title.empty() ? text : Loc::labelled(title, text);
}

std::vector<DetailLine> portDetailLines(const HPMPort& port,
                                        const std::optional<ChargingState>& charging) {
  std::vector<DetailLine> lines;
  appendPower(port, charging, lines);
  const PortDetails& details = port.details;
  if (details.cable) {
    append(Loc::cable(), cableText(*details.cable), lines);
  }
  if (details.video) {
    append(Loc::videoUse(), videoText(*details.video), lines);
  }
  if (details.isFailing) {
    append("", std::string(Loc::portFailing()), lines);
  }
  if (const std::int64_t count = details.overCurrentCount.value_or(0); count > 0) {
    append("", Loc::overCurrents(count), lines);
  }
  return lines;
}

std::string offerText(const PowerOffer& offer) {
  std::string volts = generalText(offer.minVolts);
  if (offer.maxVolts != offer.minVolts) {
    volts += "–" + generalText(offer.maxVolts);
  }
  const std::string limit =
      offer.amps ? generalText(*offer.amps) + " A" : generalText(offer.watts()) + " W";
  const char* ending = offer.kind == PowerOfferKind::programmable ? " (PPS)" : "";
  return volts + " V, " + limit + ending;
}

} // namespace tamberline
