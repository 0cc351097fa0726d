#include "model/thunderbolt_records.h"

#include "base/letter_case.h"
#include "base/text.h"
#include "i18n/loc.h"

#include <array>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

/// The order matters: "2.5 Gb/s" reads as 5 and "Up to 120 Gb/s" as 20.
std::int64_t gbpsNamedIn(std::string_view speedText) {
  constexpr std::array<std::pair<std::string_view, std::int64_t>, 4> speeds = {
      {{"40", 40}, {"20", 20}, {"10", 10}, {"5", 5}}};
  for (const auto& [digits, gbps] : speeds) {
    if (contains(speedText, digits)) {
      return gbps;
    }
  }
  return 0;
}

std::int64_t lanesNamedBy(std::string_view widthToken) {
  return widthToken == "0x2" ? 2 : 1;
}

std::string gbpsText(std::int64_t gbps) {
  return std::to_string(gbps) + " Gb/s";
}

} // namespace

bool ThunderboltPort::isConnected() const {
  return status == "receptacle_connected";
}

std::int64_t ThunderboltPort::speedGbps() const {
  return gbpsNamedIn(speed);
}

std::int64_t ThunderboltPort::laneCount() const {
  return lanesNamedBy(linkWidth);
}

std::int64_t ThunderboltPort::totalBandwidthGbps() const {
  return speedGbps() * laneCount();
}

std::string ThunderboltPort::badgeText() const {
  if (speedGbps() < 1) {
    return {};
  }
  if (laneCount() == 1) {
    return gbpsText(speedGbps());
  }
  return gbpsText(speedGbps()) + " ×" + std::to_string(laneCount());
}

std::string ThunderboltDevice::modeLabel() const {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 5> labels = {
      {{"thunderbolt_three", "TB3"},
       {"thunderbolt_four", "TB4"},
       {"usb4_gen3x2", "USB4 40G"},
       {"usb4_gen2x2", "USB4 20G"},
       {"usb4_gen2x1", "USB4 10G"}}};
  for (const auto& [token, label] : labels) {
    if (mode == token) {
      return std::string(label);
    }
  }
  return replacedAll(titleCased(replacedAll(mode, "_", " ")), "Thunderbolt ", "TB");
}

std::int64_t ThunderboltDevice::upstreamSpeedGbps() const {
  return gbpsNamedIn(upstreamSpeed);
}

std::int64_t ThunderboltDevice::upstreamLanes() const {
  return lanesNamedBy(upstreamWidth);
}

std::string ThunderboltDevice::upstreamLabel() const {
  const std::int64_t perLaneGbps = upstreamSpeedGbps();
  const std::int64_t lanes = upstreamLanes();
  if (perLaneGbps == 0) {
    return {};
  }
  if (lanes == 1) {
    return gbpsText(perLaneGbps);
  }
  return gbpsText(perLaneGbps) + " ×" + std::to_string(lanes) + " = " +
         gbpsText(perLaneGbps * lanes);
}

std::string ThunderboltBus::displayName() const {
  return Loc::thunderboltPort(busNumber);
}

} // namespace tamberline
