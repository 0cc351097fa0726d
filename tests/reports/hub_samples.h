// Devices that share container identifiers, distinguished by their names.
#pragma once

#include "model/usb_records.h"

#include <string>
#include <utility>
#include <vector>

namespace tamberline {

inline USBDevice plain(const std::string& name, std::vector<USBDevice> children = {}) {
  return USBDevice{.name = name, .children = std::move(children)};
}

/// The USB 3 half of a hub.
inline USBDevice fast(const std::string& name, const std::string& containerID,
                      std::vector<USBDevice> children = {}) {
  return USBDevice{.name = name,
                   .speed = "super_speed",
                   .containerID = containerID,
                   .children = std::move(children)};
}

/// The USB 2 half of a hub.
inline USBDevice slow(const std::string& name, const std::string& containerID,
                      std::vector<USBDevice> children = {}) {
  return USBDevice{.name = name,
                   .speed = "high_speed",
                   .containerID = containerID,
                   .children = std::move(children)};
}

inline void appendIds(const SharedList<USBDevice>& devices, std::vector<Uuid>& ids) {
  for (const USBDevice& device : devices) {
    ids.push_back(device.id);
    appendIds(device.children, ids);
  }
}

/// The identities of all buses and devices, depth-first.
inline std::vector<Uuid> idsOf(const std::vector<USBBus>& buses) {
  std::vector<Uuid> ids;
  for (const USBBus& bus : buses) {
    ids.push_back(bus.id);
    appendIds(bus.devices, ids);
  }
  return ids;
}

} // namespace tamberline
