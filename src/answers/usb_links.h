// What limits the speed of a USB device: the links between it and the computer, and what each end
// of them could do.
#pragma once

#include "answers/answer.h"
#include "tree/tree_node.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tamberline {

/// USB 2 and its predecessors. A hub whose own link is no faster connects everything behind it by
/// USB 2.
constexpr double usb2Gbps = 0.48;

/// The link of a device or hub to what it is plugged into.
struct USBLink {
  const TreeNode* node = nullptr;
  const USBDevice* device = nullptr;
  /// Negotiated; of a hub that is listed as two devices, the speed of the faster one. 0 if unknown.
  double gbps = 0;
  /// What the device proves that it can do: by its descriptors, by this link, or by those behind
  /// it.
  double atLeastGbps = 0;
  /// What it cannot exceed; absent if unknown.
  std::optional<double> atMostGbps = {};
  /// What the cable says that it carries over one lane; absent if unknown.
  std::optional<double> cableGbps = {};

  bool canExceed(double limit) const { return atLeastGbps > limit; }
  bool cannotExceed(double limit) const { return atMostGbps && *atMostGbps <= limit; }
};

/// The links from the computer's port to a device, whose own link is last.
struct USBPath {
  /// The max of the port; 0 if unknown.
  double portGbps = 0;
  /// The max of the fastest port of the computer.
  double fastestPortGbps = 0;
  std::vector<USBLink> links = {};
};

/// The slowest link, the first of equal ones; null if the speed of any is unknown.
const USBLink* slowestLink(const USBPath& path);

/// The one place on a path that would have to become faster for the device to become faster.
struct Bottleneck {
  /// Index of the link whose node or connection limits.
  std::size_t link = 0;
  LimitingPart part = LimitingPart::none;
  /// The speed of the whole path, and what it could be without the bottleneck.
  double actualGbps = 0;
  double possibleGbps = 0;
};

/// Absent if nothing single would help: the device or the port can do no more, two places limit, or
/// a speed is unknown. If it is unknown whether a node can do more, it counts as able to.
std::optional<Bottleneck> bottleneckOf(const USBPath& path);

} // namespace tamberline
