#include "answers/port_answers.h"

#include "answers/device_roles.h"
#include "base/saturating.h"

#include <algorithm>
#include <cstdint>

namespace tamberline {
namespace {

void findBlockedDevice(const TreeNode& node, const USBDevice& device, AnswerList& answers) {
  if (!device.ability.isAuthorized.value_or(true)) {
    answers.add(node,
                {.kind = AnswerKind::blocked,
                 .weight = AnswerWeight::attention,
                 .limitingNodeID = node.id,
                 .limitingPart = LimitingPart::node},
                {.node = device.shownName()});
  }
}

void findBlockedDevices(const std::vector<TreeNode>& nodes, AnswerList& answers) {
  for (const TreeNode& node : nodes) {
    if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
      findBlockedDevice(node, entry->device, answers);
    }
    findBlockedDevices(node.children, answers);
  }
}

void addOverload(const TreeNode& node, const USBDevice& device, std::int64_t declaredMa,
                 std::int64_t givenMa, AnswerList& answers) {
  const bool isHub = roleOf(device) == DeviceRole::hub;
  answers.add(node,
              {.kind = AnswerKind::overloadedPort,
               .weight = isHub ? AnswerWeight::note : AnswerWeight::attention,
               .limitingNodeID = node.id,
               .limitingPart = LimitingPart::connection,
               .facts = {.actualWatts = usbWatts(declaredMa), .possibleWatts = usbWatts(givenMa)}},
              {.node = device.shownName()});
}

/// What the socket of a device gives, by all that is known.
std::int64_t givenMaOf(const TreeNode::USBDeviceEntry& entry) {
  return std::max(entry.portMa, entry.device.busPower.value_or(0));
}

/// Any socket of USB 3 gives 900 mA, and few computers have less. Most give more than their bus
/// says, so only a clear excess counts. A hub that declares almost nothing for itself has a power
/// supply of its own.
void findOverloadBehindHub(const TreeNode& node, const TreeNode::USBDeviceEntry& entry,
                           AnswerList& answers) {
  constexpr std::int64_t usb3PortMa = 900;
  constexpr std::int64_t maxMaOfSelfPowered = 2;
  if (entry.device.busPowerUsed.value_or(0) <= maxMaOfSelfPowered) {
    return;
  }
  const std::int64_t givenMa = std::max(givenMaOf(entry), usb3PortMa);
  const std::int64_t declaredMa = node.aggregatedUSBPower().usedMa;
  if (declaredMa > saturatingSum(givenMa, givenMa / 2)) {
    addOverload(node, entry.device, declaredMa, givenMa, answers);
  }
}

/// A device that is plugged into a socket of the computer.
void findOverload(const TreeNode& node, const TreeNode::USBDeviceEntry& entry,
                  AnswerList& answers) {
  const std::int64_t declaredMa = entry.device.busPowerUsed.value_or(0);
  if (entry.portMa <= 0 || entry.device.isBuiltIn.value_or(false)) {
    return;
  }
  if (roleOf(entry.device) == DeviceRole::hub) {
    findOverloadBehindHub(node, entry, answers);
  } else if (declaredMa > givenMaOf(entry)) {
    addOverload(node, entry.device, declaredMa, givenMaOf(entry), answers);
  }
}

void findPowerWithoutData(const TreeNode& node, const ThunderboltBus& bus, AnswerList& answers) {
  if (std::holds_alternative<TreeNode::ChargingOnly>(node.kind)) {
    answers.add(node, {.kind = AnswerKind::powerWithoutData}, {.node = bus.displayName()});
  }
}

void findSilentDevice(const TreeNode& node, const ThunderboltBus& bus,
                      std::span<const HPMPort> controllers, AnswerList& answers) {
  const bool isFailing =
      std::any_of(controllers.begin(), controllers.end(), [&](const HPMPort& port) {
        return !port.isMagSafe && port.portNumber == bus.busNumber && port.details.isFailing;
      });
  if (isFailing) {
    answers.add(node,
                {.kind = AnswerKind::silentDevice,
                 .weight = AnswerWeight::attention,
                 .limitingNodeID = node.id,
                 .limitingPart = LimitingPart::connection},
                {.node = bus.displayName()});
  }
}

} // namespace

void findPortAnswers(const AnswerInputs& inputs, AnswerList& answers) {
  for (const TreeNode& top : inputs.portTree) {
    const auto* port = std::get_if<TreeNode::TBPort>(&top.kind);
    if (port != nullptr) {
      findSilentDevice(top, port->bus, inputs.hpmPorts, answers);
    }
    for (const TreeNode& node : top.children) {
      if (port != nullptr) {
        findPowerWithoutData(node, port->bus, answers);
      }
      if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
        findOverload(node, *entry, answers);
      }
    }
    findBlockedDevices(top.children, answers);
  }
}

} // namespace tamberline
