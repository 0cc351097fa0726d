#include "reports/link_limits.h"

#include "reports/json_values.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

constexpr double slowestLaneGbps = 10;
constexpr double fastLaneGbps = 20;

/// As the kernel counts: 4 is USB4.
std::optional<LinkLimit> linkLimitOfGeneration(std::int64_t generation) {
  switch (generation) {
  case 1:
    return LinkLimit{.lanes = 1, .gbpsOfLane = slowestLaneGbps};
  case 2:
    return LinkLimit{.lanes = 2, .gbpsOfLane = slowestLaneGbps};
  case 3:
    return LinkLimit{.lanes = 2, .gbpsOfLane = fastLaneGbps};
  case 4:
    return LinkLimit{.lanes = 2};
  default:
    return std::nullopt;
  }
}

/// The smaller one. If one is unknown, it is the other only if that is as slow as any.
std::optional<double> slowerLane(const std::optional<double>& first,
                                 const std::optional<double>& second) {
  const std::optional<double> known = first ? first : second;
  if (first && second) {
    return std::min(first, second);
  }
  return known == slowestLaneGbps ? known : std::nullopt;
}

} // namespace

std::optional<LinkLimit> linkLimitOfMode(std::string_view mode) {
  if (mode == "thunderbolt_four") {
    return LinkLimit{.lanes = 2, .gbpsOfLane = fastLaneGbps};
  }
  constexpr std::int64_t usb4 = 4;
  if (mode.starts_with("usb4")) {
    return linkLimitOfGeneration(usb4);
  }
  for (const auto& [word, generation] :
       {std::pair("thunderbolt_one", 1), {"thunderbolt_two", 2}, {"thunderbolt_three", 3}}) {
    if (mode == word) {
      return linkLimitOfGeneration(generation);
    }
  }
  return std::nullopt;
}

std::optional<LinkLimit> linkLimitOfHost(const nlohmann::json& bus) {
  if (textMember(bus, "_name", "").starts_with("thunderboltusb4_bus_")) {
    return LinkLimit{.lanes = 2, .gbpsOfLane = fastLaneGbps};
  }
  return linkLimitOfGeneration(integerTextMember(bus, "tamberline_generation").value_or(0));
}

std::optional<LinkLimit> linkLimitBetween(const std::optional<LinkLimit>& first,
                                          const std::optional<LinkLimit>& second) {
  if (!first || !second) {
    return std::nullopt;
  }
  return LinkLimit{.lanes = std::min(first->lanes, second->lanes),
                   .gbpsOfLane = slowerLane(first->gbpsOfLane, second->gbpsOfLane)};
}

} // namespace tamberline
