#include "answers/usb_answers.h"

#include "answers/device_roles.h"
#include "answers/speed_tests.h"
#include "answers/usb_findings.h"
#include "answers/usb_links.h"
#include "base/overloaded.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace tamberline {
namespace {

/// What is known about all hubs of a machine. A USB 3 hub is two devices, one of them on USB 2.
/// They are usually listed as one, but not if nothing says that they belong together.
class HubHalves {
public:
  void collect(std::span<const TreeNode> nodes) {
    for (const TreeNode& node : nodes) {
      const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind);
      if (entry != nullptr && entry->device.speedGbps() > usb2Gbps &&
          roleOf(entry->device) == DeviceRole::hub) {
        add(entry->device);
      }
      collect(node.children);
    }
  }

  /// The speed of the faster half; absent if it is unknown whether this device is one.
  std::optional<double> speedOf(const USBDevice& device) const {
    const double gbps = device.speedGbps();
    if (gbps > usb2Gbps || roleOf(device) != DeviceRole::hub) {
      return gbps;
    }
    const auto half = gbpsOfContainer_.find(device.containerID.value_or(""));
    if (half != gbpsOfContainer_.end()) {
      return half->second;
    }
    return vendors_.contains(device.vendorID) ? std::nullopt : std::optional(gbps);
  }

private:
  void add(const USBDevice& hub) {
    if (!hub.containerID.value_or("").empty()) {
      double& gbps = gbpsOfContainer_[*hub.containerID];
      gbps = std::max(gbps, hub.speedGbps());
    } else if (!hub.vendorID.empty()) {
      vendors_.insert(hub.vendorID);
    }
  }

  std::map<std::string, double> gbpsOfContainer_;
  std::set<std::string> vendors_; // of USB 3 hubs without a container
};

double fastestPort(std::span<const TreeNode> nodes) {
  double gbps = 0;
  for (const TreeNode& node : nodes) {
    if (const auto* bus = std::get_if<TreeNode::USBBusEntry>(&node.kind)) {
      gbps = std::max(gbps, bus->bus.maxSpeedLabel().empty() ? 0 : bus->bus.maxSpeedGbps());
    } else if (const auto* device = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
      gbps = std::max(gbps, device->busMaxGbps);
      continue; // the same below
    }
    gbps = std::max(gbps, fastestPort(node.children));
  }
  return gbps;
}

/// Where the devices of a bus or port are plugged in.
struct Socket {
  /// The bus, if it has sockets of its own.
  const TreeNode* bus = nullptr;
  const CableRatings* cable = nullptr;
  bool isSpeedKnown = true;
};

class USBSpeedSearch {
public:
  explicit USBSpeedSearch(const AnswerInputs& inputs, AnswerList& answers)
      : inputs_(inputs), answers_(answers) {
    halves_.collect(inputs.portTree);
    path_.fastestPortGbps = fastestPort(inputs.portTree);
  }

  void run() {
    search(inputs_.portTree, Socket());
    findings_.addTo(answers_);
  }

private:
  void search(std::span<const TreeNode> nodes, const Socket& socket) {
    for (const TreeNode& node : nodes) {
      if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
        searchDevice(node, *entry, socket);
      } else {
        search(node.children, socketBelow(node));
      }
    }
  }

  Socket socketBelow(const TreeNode& node) const {
    if (const auto* port = std::get_if<TreeNode::TBPort>(&node.kind)) {
      const HPMPort* controller = controllerOf(port->bus.busNumber);
      const bool isCableKnown = controller != nullptr && controller->details.cable.has_value();
      return {.cable = isCableKnown ? &*controller->details.cable : nullptr};
    }
    if (const auto* entry = std::get_if<TreeNode::USBBusEntry>(&node.kind)) {
      return {.bus = &node, .isSpeedKnown = !entry->bus.maxSpeedLabel().empty()};
    }
    return {};
  }

  const HPMPort* controllerOf(std::int64_t portNumber) const {
    const auto found =
        std::find_if(inputs_.hpmPorts.begin(), inputs_.hpmPorts.end(), [&](const HPMPort& port) {
          return port.portNumber == portNumber && !port.isMagSafe;
        });
    return found == inputs_.hpmPorts.end() ? nullptr : &*found;
  }

  void searchDevice(const TreeNode& node, const TreeNode::USBDeviceEntry& entry,
                    const Socket& socket) {
    path_.portGbps = socket.isSpeedKnown ? entry.busMaxGbps : 0;
    path_.links.push_back(linkOf(node, entry.device, path_.links.empty() ? &socket : nullptr));
    judge(entry.device, socket);
    search(node.children, socket);
    path_.links.pop_back();
  }

  /// `socket` is null for what is plugged into a hub.
  USBLink linkOf(const TreeNode& node, const USBDevice& device, const Socket* socket) const {
    const double gbps = halves_.speedOf(device).value_or(0);
    USBLink link{.node = &node,
                 .device = &device,
                 .gbps = gbps,
                 .atLeastGbps = std::max(gbps, device.ability.provenGbps.value_or(0)),
                 .atMostGbps = device.ability.limitGbps};
    for (const USBDevice& child : device.children) {
      link.atLeastGbps = std::max(link.atLeastGbps, child.speedGbps());
    }
    if (socket != nullptr && socket->cable != nullptr) {
      link.cableGbps = socket->cable->gbpsOfLane;
    }
    return link;
  }

  void judge(const USBDevice& device, const Socket& socket) {
    const DeviceRole role = roleOf(device);
    const USBLink* slowest = slowestLink(path_);
    if (role == DeviceRole::hub || role == DeviceRole::quiet || slowest == nullptr) {
      return;
    }
    const TreeNode& node = *path_.links.back().node;
    findSpeedTestAnswers(node, device, *slowest, inputs_.benchmarks, answers_);
    if (device.isTunneledDrive || isProvenSlow(device, *slowest, inputs_.benchmarks)) {
      return;
    }
    if (const std::optional<Bottleneck> bottleneck = bottleneckOf(path_)) {
      findings_.add(path_, *bottleneck, role);
    } else if (role == DeviceRole::drive && isSlowedByPort(socket)) {
      findings_.addSlowPort(path_, *socket.bus);
    }
  }

  /// Whether a drive in a socket of its own bus would be faster in another one.
  bool isSlowedByPort(const Socket& socket) const {
    const USBLink& link = path_.links.back();
    return socket.bus != nullptr && path_.links.size() == 1 && path_.portGbps > usb2Gbps &&
           link.gbps == path_.portGbps && link.canExceed(link.gbps) &&
           path_.fastestPortGbps > path_.portGbps;
  }

  const AnswerInputs& inputs_;
  AnswerList& answers_;
  HubHalves halves_;
  USBPath path_;
  USBFindings findings_;
};

} // namespace

void findUSBSpeedAnswers(const AnswerInputs& inputs, AnswerList& answers) {
  USBSpeedSearch(inputs, answers).run();
}

} // namespace tamberline
