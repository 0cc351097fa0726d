#include "reports/thunderbolt_report.h"

#include "base/text.h"
#include "reports/json_values.h"
#include "reports/usb_report.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

std::int64_t busNumberOf(const json& entry, std::int64_t position) {
  const std::string name = textMember(entry, "_name", "");
  return parseDecimal(split(name, '_').back()).value_or(position);
}

ThunderboltBus parseBus(const json& entry, std::int64_t position) {
  const json& receptacle = receptacleTag(entry, "receptacle_1_tag");
  return ThunderboltBus{
      .busNumber = busNumberOf(entry, position),
      .hostName = textMember(entry, "device_name_key", "Unknown"),
      .uid = textMember(entry, "switch_uid_key", ""),
      .port = ThunderboltPort{.status = textMember(receptacle, "receptacle_status_key", ""),
                              .speed = textMember(receptacle, "current_speed_key", ""),
                              .linkWidth = textMember(receptacle, "current_link_width_key", "")},
      .connectedDevices = parseThunderboltDevices(objectsMember(entry, "_items")),
  };
}

/// From a key of our own, which Macs do not have.
std::optional<bool> authorizationIn(const json& item) {
  const auto word = textMember(item, "tamberline_is_authorized");
  return word ? std::optional(*word == "TRUE") : std::nullopt;
}

ThunderboltDevice parseDevice(const json& item, std::string name) {
  const json& upstream = receptacleTag(item, "receptacle_upstream_ambiguous_tag");
  return ThunderboltDevice{
      .name = std::move(name),
      .vendorName = textMember(item, "vendor_name_key", ""),
      .mode = textMember(item, "mode_key", ""),
      .uid = textMember(item, "switch_uid_key", ""),
      .firmwareVersion = textMember(item, "switch_version_key", ""),
      .upstreamSpeed = textMember(upstream, "current_speed_key", ""),
      .upstreamWidth = textMember(upstream, "current_link_width_key", ""),
      .children = parseThunderboltDevices(objectsMember(item, "_items")),
      .drives = parseTunneledDrives(objectsMember(item, "tamberline_drives")),
      .isAuthorized = authorizationIn(item),
  };
}

} // namespace

std::vector<ThunderboltBus> parseThunderbolt(const json& report) {
  std::vector<ThunderboltBus> buses;
  for (const json& entry : objectsMember(report, "SPThunderboltDataType")) {
    buses.push_back(parseBus(entry, static_cast<std::int64_t>(buses.size()) + 1));
  }
  return buses;
}

std::vector<ThunderboltDevice> parseThunderboltDevices(const json& items) {
  std::vector<ThunderboltDevice> devices;
  for (const json& item : items) {
    if (std::optional<std::string> name = textMember(item, "_name")) {
      devices.push_back(parseDevice(item, std::move(*name)));
    }
  }
  return devices;
}

const json& receptacleTag(const json& entry, std::string_view key) {
  return objectMember(entry, key);
}

} // namespace tamberline
