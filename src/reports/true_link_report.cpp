#include "reports/true_link_report.h"

#include "base/text.h"
#include "reports/json_values.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

constexpr double maxPlausibleGbps = 1000;
constexpr std::int64_t maxLanes = 16;
/// Of any link other than those of 80 and 120 Gb/s.
constexpr double maxGbpsPerLane = 20;

std::optional<double> gbpsIn(std::string_view text) {
  const std::optional<double> gbps = parseNumber(text);
  return gbps && *gbps > 0 && *gbps <= maxPlausibleGbps ? gbps : std::nullopt;
}

std::optional<std::int64_t> lanesIn(std::string_view text) {
  const std::optional<std::int64_t> lanes = parseDecimal(text);
  return lanes && *lanes >= 1 && *lanes <= maxLanes ? lanes : std::nullopt;
}

std::optional<TrueLink> linkFromCustomKeys(const json& entry) {
  const TrueLink link{
      .transmitGbps = gbpsIn(textMember(entry, "tamberline_link_transmit_gbps", "")),
      .receiveGbps = gbpsIn(textMember(entry, "tamberline_link_receive_gbps", "")),
      .transmitLanes = lanesIn(textMember(entry, "tamberline_link_transmit_lanes", "")),
      .receiveLanes = lanesIn(textMember(entry, "tamberline_link_receive_lanes", "")),
  };
  return link.transmitGbps || link.receiveGbps ? std::optional(link) : std::nullopt;
}

/// A text such as "Up to 10 Gb/s x2".
struct SpeedText {
  bool isUpTo = false;
  double gbps = 0;
  std::optional<std::int64_t> links = {};
};

std::optional<SpeedText> parseSpeedText(std::string_view text) {
  const std::vector<std::string_view> words = splitNonEmpty(text, ' ');
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    const std::optional<double> gbps = gbpsIn(words[i]);
    if (!gbps || !words[i + 1].starts_with("Gb")) {
      continue;
    }
    SpeedText speed{.isUpTo = i > 0, .gbps = *gbps};
    if (i + 2 < words.size() && words[i + 2].starts_with('x')) {
      speed.links = lanesIn(words[i + 2].substr(1));
    }
    return speed;
  }
  return std::nullopt;
}

std::optional<std::int64_t> lanesOf(const SpeedText& speed, std::string_view width) {
  if (width == "0x1" || width == "0x2") {
    return width == "0x2" ? 2 : 1;
  }
  return speed.links && *speed.links > 1 ? speed.links : std::nullopt;
}

TrueLink linkOfTexts(const SpeedText& speed, std::string_view width) {
  const std::optional<std::int64_t> lanes = lanesOf(speed, width);
  const bool isPerLane =
      !speed.isUpTo && !speed.links && lanes == 2 && speed.gbps <= maxGbpsPerLane;
  const auto links = static_cast<double>(isPerLane ? 2 : speed.links.value_or(1));
  const double gbps = speed.gbps * links;
  if (gbps == 120) {
    return {.transmitGbps = 120, .receiveGbps = 40, .transmitLanes = 3, .receiveLanes = 1};
  }
  return {.transmitGbps = gbps, .receiveGbps = gbps, .transmitLanes = lanes, .receiveLanes = lanes};
}

} // namespace

std::optional<TrueLink> parseTrueLink(const json& receptacle) {
  if (const std::optional<TrueLink> link = linkFromCustomKeys(receptacle)) {
    return link;
  }
  const auto speed = parseSpeedText(textMember(receptacle, "current_speed_key", ""));
  if (!speed) {
    return std::nullopt;
  }
  return linkOfTexts(*speed, textMember(receptacle, "current_link_width_key", ""));
}

std::optional<TrueLink> parseTrueLink(const json& upstream, const json& device) {
  const std::optional<TrueLink> own = linkFromCustomKeys(device);
  return own ? own : parseTrueLink(upstream);
}

} // namespace tamberline
