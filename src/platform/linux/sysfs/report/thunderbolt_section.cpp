#include "base/text.h"
#include "platform/linux/sysfs/report/physical_ports.h"
#include "platform/linux/sysfs/report/report_sections.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <string>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

constexpr std::int64_t usb4Generation = 4;

/// The kernel writes "20.0 Gb/s", the report "20 Gb/s".
std::string speedText(const LinkWay& way) {
  const std::size_t decimals = way.speedOfLane.find(".0 ");
  return decimals == std::string::npos ? way.speedOfLane
                                       : std::string(way.speedOfLane).erase(decimals, 2);
}

/// The total speed of all lanes; 0 if unknown.
std::int64_t gbpsOf(const LinkWay& way) {
  constexpr std::int64_t maxCredibleGbpsOfLane = 1000;
  constexpr std::int64_t maxCredibleLanes = 16;
  const std::string speed = speedText(way);
  const std::int64_t gbpsOfLane = parseDecimal(speed.substr(0, speed.find(' '))).value_or(0);
  const std::int64_t lanes = way.lanes.value_or(0);
  const bool isCredible = gbpsOfLane > 0 && gbpsOfLane <= maxCredibleGbpsOfLane && lanes > 0 &&
                          lanes <= maxCredibleLanes;
  return isCredible ? gbpsOfLane * lanes : 0;
}

/// Adds the speed of the whole link, because the report's own keys have only that of one lane.
void addLinkDirection(const std::string& name, const LinkWay& way, json& link) {
  if (const std::int64_t gbps = gbpsOf(way); gbps > 0) {
    link["tamberline_link_" + name + "_gbps"] = std::to_string(gbps);
    link["tamberline_link_" + name + "_lanes"] = std::to_string(*way.lanes);
  }
}

json linkOf(const Router& router) {
  json link = json::object();
  if (!router.fromHost.speedOfLane.empty()) {
    link["current_speed_key"] = speedText(router.fromHost);
  }
  if (router.fromHost.lanes) {
    link["current_link_width_key"] = "0x" + std::to_string(*router.fromHost.lanes);
  }
  addLinkDirection("transmit", router.fromHost, link);
  addLinkDirection("receive", router.toHost, link);
  return link;
}

/// The name of a USB4 link consists of its generation, which is derived from its speed, and its
/// number of lanes.
std::string usb4Mode(const Router& router) {
  const std::string speed = speedText(router.fromHost);
  std::string generation;
  if (speed == "10 Gb/s") {
    generation = "gen2";
  } else if (speed == "20 Gb/s") {
    generation = "gen3";
  } else if (speed == "40 Gb/s") {
    generation = "gen4";
  }
  const std::string link = generation.empty() || !router.fromHost.lanes
                               ? std::string()
                               : "_" + generation + "x" + std::to_string(*router.fromHost.lanes);
  return "usb4" + link;
}

/// Empty if the kernel does not report it.
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

class ThunderboltSection {
public:
  explicit ThunderboltSection(const Machine& machine)
      : routers_(machine.thunderbolt.routers), typecPorts_(machine.typecPorts) {}

  json port(int number, const PhysicalPort& port) const {
    json entry = {{"_name", "port_" + std::to_string(number)}};
    const auto host = port.host ? routers_.find(*port.host) : routers_.end();
    if (host != routers_.end()) {
      entry["device_name_key"] = host->second.name;
      entry["switch_uid_key"] = host->second.uid;
      if (host->second.generation) {
        entry["tamberline_generation"] = std::to_string(*host->second.generation);
      }
    }
    json receptacle = json::object();
    if (!port.routers.empty()) {
      receptacle = linkOf(routers_.at(port.routers.front()));
    }
    receptacle["receptacle_status_key"] =
        isConnected(number, port) ? "receptacle_connected" : "receptacle_no_devices_connected";
    entry["receptacle_1_tag"] = std::move(receptacle);
    json items = json::array();
    for (const RouterAddress& address : port.routers) {
      items.push_back(device(address));
    }
    entry["_items"] = std::move(items);
    return entry;
  }

private:
  bool isConnected(int number, const PhysicalPort& port) const {
    const auto typec = typecPorts_.find(number);
    return !port.routers.empty() || (typec != typecPorts_.end() && typec->second.partner);
  }

  static json drives(const Router& router) {
    json drives = json::array();
    for (const Drive& drive : router.drives) {
      json entry = {{"_name", drive.name}, {"volumes", volumeEntries(drive.volumes)}};
      if (!drive.serialNumber.empty()) {
        entry["serial_num"] = drive.serialNumber;
      }
      if (const std::int64_t gbps = gbpsOf(router.fromHost); gbps > 0) {
        entry["device_speed"] = std::to_string(gbps) + " Gb/s";
        entry["tamberline_mbps"] = std::to_string(gbps * 1000);
      }
      drives.push_back(std::move(entry));
    }
    return drives;
  }

  json device(const RouterAddress& address) const {
    const Router& router = routers_.at(address);
    json items = json::array();
    for (const auto& [other, ignored] : routers_) {
      if (!other.isHost() && !other.parent().isHost() && other.parent() == address) {
        items.push_back(device(other));
      }
    }
    json entry = {{"_name", router.name.empty() ? "Thunderbolt Device" : router.name},
                  {"vendor_name_key", router.vendor},
                  {"mode_key", modeOf(router)},
                  {"switch_uid_key", router.uid},
                  {"switch_version_key", router.firmwareVersion},
                  {"receptacle_upstream_ambiguous_tag", linkOf(router)},
                  {"_items", std::move(items)}};
    if (!router.drives.empty()) {
      entry["tamberline_drives"] = drives(router);
    }
    if (router.isAuthorized) {
      entry["tamberline_is_authorized"] = *router.isAuthorized ? "TRUE" : "FALSE";
    }
    return entry;
  }

  const std::map<RouterAddress, Router>& routers_;
  const std::map<int, TypecPort>& typecPorts_;
};

} // namespace

json thunderboltSection(const Machine& machine) {
  const ThunderboltSection section(machine);
  json entries = json::array();
  for (const auto& [number, port] : physicalPortsOf(machine).ports) {
    entries.push_back(section.port(number, port));
  }
  return {{thunderboltSectionKey, std::move(entries)}};
}

} // namespace tamberline::sysfs
