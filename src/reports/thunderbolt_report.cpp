#include "reports/thunderbolt_report.h"

#include "base/text.h"
#include "reports/json_values.h"
#include "reports/link_limits.h"
#include "reports/report_decoding.h"
#include "reports/true_link_report.h"
#include "reports/usb_report.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

std::int64_t busNumberOf(const json& entry, std::int64_t position) {
  const std::string name = textMember(entry, "_name", "");
  return parseDecimal(split(name, '_').back()).value_or(position);
}

ThunderboltPort parsePort(const json& receptacle) {
  ThunderboltPort port{.status = textMember(receptacle, "receptacle_status_key", ""),
                       .speed = textMember(receptacle, "current_speed_key", ""),
                       .linkWidth = textMember(receptacle, "current_link_width_key", "")};
  if (port.isConnected()) {
    port.link = parseTrueLink(receptacle);
  }
  return port;
}

std::vector<ThunderboltReceptacle> parseReceptacles(const json& entry) {
  static constexpr std::array keys = {"receptacle_1_tag", "receptacle_2_tag", "receptacle_3_tag",
                                      "receptacle_4_tag"};
  std::vector<ThunderboltReceptacle> receptacles;
  for (const char* key : keys) {
    const json& receptacle = receptacleTag(entry, key);
    if (!receptacle.empty()) {
      receptacles.push_back(
          {integerTextMember(receptacle, "receptacle_id_key"), parsePort(receptacle)});
    }
  }
  return receptacles;
}

ThunderboltBus readBus(const json& entry, std::int64_t position) {
  return ThunderboltBus{
      .busNumber = busNumberOf(entry, position),
      .hostName = textMember(entry, "device_name_key", "Unknown"),
      .uid = textMember(entry, "switch_uid_key", ""),
      .port = parsePort(receptacleTag(entry, "receptacle_1_tag")),
      .connectedDevices =
          parseThunderboltDevices(objectsMember(entry, "_items"), linkLimitOfHost(entry)),
      .receptacles = parseReceptacles(entry),
  };
}

/// The key is not in a Mac's reports.
std::optional<bool> authorizationIn(const json& item) {
  const auto word = textMember(item, "tamberline_is_authorized");
  return word ? std::optional(*word == "TRUE") : std::nullopt;
}

/// The speed of a connected receptacle may still be its maximum, while that of the device behind it
/// is what the two agreed on. With more than one of either, it is unknown which belongs to which.
void copyLinkOfOnlyDevice(ThunderboltBus& bus) {
  const auto isConnected = [](const ThunderboltReceptacle& receptacle) {
    return receptacle.port.isConnected();
  };
  const bool isOnlyOne =
      bus.connectedDevices.size() == 1 &&
      std::count_if(bus.receptacles.begin(), bus.receptacles.end(), isConnected) == 1;
  if (!isOnlyOne || !bus.connectedDevices[0].link) {
    return;
  }
  const std::optional<TrueLink>& link = bus.connectedDevices[0].link;
  std::find_if(bus.receptacles.begin(), bus.receptacles.end(), isConnected)->port.link = link;
  if (bus.port.isConnected()) {
    bus.port.link = link;
  }
}

ThunderboltBus parseBus(const json& entry, std::int64_t position) {
  ThunderboltBus bus = readBus(entry, position);
  copyLinkOfOnlyDevice(bus);
  return bus;
}

ThunderboltDevice parseDevice(const json& item, std::string name,
                              const std::optional<LinkLimit>& otherEnd) {
  const json& upstream = receptacleTag(item, "receptacle_upstream_ambiguous_tag");
  const auto ownEnd = linkLimitOfMode(textMember(item, "mode_key", ""));
  return ThunderboltDevice{
      .name = std::move(name),
      .vendorName = textMember(item, "vendor_name_key", ""),
      .mode = textMember(item, "mode_key", ""),
      .uid = textMember(item, "switch_uid_key", ""),
      .firmwareVersion = textMember(item, "switch_version_key", ""),
      .upstreamSpeed = textMember(upstream, "current_speed_key", ""),
      .upstreamWidth = textMember(upstream, "current_link_width_key", ""),
      .link = parseTrueLink(upstream, item),
      .children = parseThunderboltDevices(objectsMember(item, "_items"), ownEnd),
      .drives = parseTunneledDrives(objectsMember(item, "tamberline_drives")),
      .isAuthorized = authorizationIn(item),
      .linkLimit = linkLimitBetween(otherEnd, ownEnd),
  };
}

} // namespace

std::vector<ThunderboltBus> parseThunderbolt(const json& report) {
  std::vector<ThunderboltBus> buses;
  for (const json& entry : objectsMember(report, thunderboltSectionKey)) {
    buses.push_back(parseBus(entry, static_cast<std::int64_t>(buses.size()) + 1));
  }
  return buses;
}

std::vector<ThunderboltDevice> parseThunderboltDevices(const json& items,
                                                       const std::optional<LinkLimit>& upstream) {
  std::vector<ThunderboltDevice> devices;
  for (const json& item : items) {
    if (std::optional<std::string> name = textMember(item, "_name")) {
      devices.push_back(parseDevice(item, std::move(*name), upstream));
    }
  }
  return devices;
}

const json& receptacleTag(const json& entry, std::string_view key) {
  return objectMember(entry, key);
}

} // namespace tamberline
