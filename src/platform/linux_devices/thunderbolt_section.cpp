#include "platform/linux_devices/physical_ports.h"
#include "platform/linux_devices/report_sections.h"

#include <nlohmann/json.hpp>

#include <string>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

constexpr std::int64_t usb4Generation = 4;

/// The kernel writes "20.0 Gb/s", the report "20 Gb/s".
std::string speedText(const Router& router) {
  const std::size_t decimals = router.speedOfLane.find(".0 ");
  return decimals == std::string::npos ? router.speedOfLane
                                       : std::string(router.speedOfLane).erase(decimals, 2);
}

json linkOf(const Router& router) {
  json link = json::object();
  if (!router.speedOfLane.empty()) {
    link["current_speed_key"] = speedText(router);
  }
  if (router.lanes) {
    link["current_link_width_key"] = "0x" + std::to_string(*router.lanes);
  }
  return link;
}

/// A USB4 link is named after its generation, which is known by its speed, and its lanes.
std::string usb4Mode(const Router& router) {
  const std::string speed = speedText(router);
  std::string generation;
  if (speed == "10 Gb/s") {
    generation = "gen2";
  } else if (speed == "20 Gb/s") {
    generation = "gen3";
  } else if (speed == "40 Gb/s") {
    generation = "gen4";
  }
  const std::string link = generation.empty() || !router.lanes
                               ? std::string()
                               : "_" + generation + "x" + std::to_string(*router.lanes);
  return "usb4" + link;
}

/// Empty where the kernel does not tell.
std::string modeOf(const Router& router) {
  switch (router.generation.value_or(0)) {
  case 1:
    return "thunderbolt_one";
  case 2:
    return "thunderbolt_two";
  case 3:
    return "thunderbolt_three";
  case usb4Generation:
    return usb4Mode(router);
  default:
    return {};
  }
}

class Section {
public:
  explicit Section(const ThunderboltTopology& thunderbolt) : routers_(thunderbolt.routers) {}

  json port(int number, const PhysicalPort& port) const {
    json entry = {{"_name", "port_" + std::to_string(number)}};
    const auto host = port.host ? routers_.find(*port.host) : routers_.end();
    if (host != routers_.end()) {
      entry["device_name_key"] = host->second.name;
      entry["switch_uid_key"] = host->second.uid;
    }
    json receptacle = json::object();
    if (!port.routers.empty()) {
      receptacle = linkOf(routers_.at(port.routers.front()));
    }
    receptacle["receptacle_status_key"] =
        port.routers.empty() ? "receptacle_no_devices_connected" : "receptacle_connected";
    entry["receptacle_1_tag"] = std::move(receptacle);
    json items = json::array();
    for (const RouterAddress& address : port.routers) {
      items.push_back(device(address));
    }
    entry["_items"] = std::move(items);
    return entry;
  }

private:
  json device(const RouterAddress& address) const {
    const Router& router = routers_.at(address);
    json items = json::array();
    for (const auto& [other, ignored] : routers_) {
      if (!other.isHost() && !other.parent().isHost() && other.parent() == address) {
        items.push_back(device(other));
      }
    }
    return {{"_name", router.name.empty() ? "Thunderbolt Device" : router.name},
            {"vendor_name_key", router.vendor},
            {"mode_key", modeOf(router)},
            {"switch_uid_key", router.uid},
            {"switch_version_key", router.firmwareVersion},
            {"receptacle_upstream_ambiguous_tag", linkOf(router)},
            {"_items", std::move(items)}};
  }

  const std::map<RouterAddress, Router>& routers_;
};

} // namespace

json thunderboltSection(const Machine& machine) {
  const Section section(machine.thunderbolt);
  json entries = json::array();
  for (const auto& [number, port] : physicalPortsOf(machine).ports) {
    entries.push_back(section.port(number, port));
  }
  return {{"SPThunderboltDataType", std::move(entries)}};
}

} // namespace tamberline::sysfs
