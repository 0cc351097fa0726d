#include "answers/shared_links.h"

#include "answers/device_roles.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

namespace tamberline {
namespace {

constexpr double fastDriveGbps = 5;
/// Drives rarely work at the same time, so a little less for each is not worth a note.
constexpr double noticeableExcess = 1.5;

/// The fast drives below a node.
struct Load {
  double gbps = 0; // of all their links
  std::vector<const TreeNode*> drives = {};
  bool isReported = false; // by a node further down

  void add(const Load& other) {
    gbps += other.gbps;
    drives.insert(drives.end(), other.drives.begin(), other.drives.end());
    isReported = isReported || other.isReported;
  }
};

/// 0 if unknown.
double linkGbps(const TreeNode& node) {
  if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
    return entry->device.speedGbps();
  }
  const auto* entry = std::get_if<TreeNode::TBDevice>(&node.kind);
  const bool isKnown = entry != nullptr && entry->device.link.has_value();
  return isKnown ? entry->device.link->receiveGbps.value_or(0) : 0;
}

std::string nameOf(const TreeNode& node) {
  if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
    return entry->device.shownName();
  }
  const auto* entry = std::get_if<TreeNode::TBDevice>(&node.kind);
  return entry == nullptr ? std::string() : entry->device.name;
}

const USBDevice* fastDriveIn(const TreeNode& node) {
  const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind);
  const bool isFastDrive = entry != nullptr && entry->device.speedGbps() >= fastDriveGbps &&
                           roleOf(entry->device) == DeviceRole::drive;
  return isFastDrive ? &entry->device : nullptr;
}

void report(const TreeNode& node, const Load& load, AnswerList& answers) {
  std::vector<std::string> drives;
  std::transform(load.drives.begin(), load.drives.end(), std::back_inserter(drives),
                 [](const TreeNode* drive) { return drive->id; });
  answers.add(node,
              {.kind = AnswerKind::sharedLink,
               .limitingNodeID = node.id,
               .limitingPart = LimitingPart::connection,
               .otherNodeIDs = std::move(drives),
               .facts = {.actualGbps = linkGbps(node),
                         .possibleGbps = load.gbps,
                         .count = static_cast<std::int64_t>(load.drives.size())}},
              {.node = nameOf(node), .limit = nameOf(node)});
}

Load loadOf(const TreeNode& node, AnswerList& answers);

/// The drives inside one enclosure count as one: nobody can plug them in elsewhere.
Load loadBelow(const TreeNode& node, AnswerList& answers) {
  Load load;
  bool hasEnclosedDrive = false;
  for (const TreeNode& child : node.children) {
    const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&child.kind);
    const bool isEnclosed = entry != nullptr && entry->device.isTunneledDrive;
    if (!isEnclosed || !hasEnclosedDrive) {
      load.add(loadOf(child, answers));
    }
    hasEnclosedDrive = hasEnclosedDrive || isEnclosed;
  }
  return load;
}

Load loadOf(const TreeNode& node, AnswerList& answers) {
  if (const USBDevice* drive = fastDriveIn(node)) {
    return {.gbps = drive->speedGbps(), .drives = {&node}};
  }
  Load load = loadBelow(node, answers);
  const double gbps = linkGbps(node);
  if (gbps > 0 && load.drives.size() > 1 && load.gbps >= gbps * noticeableExcess &&
      !load.isReported) {
    report(node, load, answers);
    load.isReported = true;
  }
  return load;
}

} // namespace

void findSharedLinks(std::span<const TreeNode> tree, AnswerList& answers) {
  for (const TreeNode& node : tree) {
    loadOf(node, answers);
  }
}

} // namespace tamberline
