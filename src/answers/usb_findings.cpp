#include "answers/usb_findings.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>

namespace tamberline {
namespace {

/// Whether more speed is of use to such a device. USB 3 at 5 Gb/s is enough for all but drives.
bool isWorthAnAnswer(DeviceRole role, double actualGbps, bool isAbilityKnown) {
  switch (role) {
  case DeviceRole::drive:
    return isAbilityKnown || actualGbps <= usb2Gbps;
  case DeviceRole::network:
    return actualGbps <= usb2Gbps;
  case DeviceRole::other:
    return isAbilityKnown && actualGbps <= usb2Gbps;
  case DeviceRole::quiet:
  case DeviceRole::hub:
    break;
  }
  return false;
}

AnswerKind kindOf(const Bottleneck& bottleneck, bool isOwnLink, bool isAbilityKnown) {
  const bool isConnection =
      bottleneck.part == LimitingPart::connection || bottleneck.part == LimitingPart::cable;
  if (isConnection && (isAbilityKnown || !isOwnLink)) {
    return AnswerKind::slowConnection;
  }
  return isAbilityKnown ? AnswerKind::slowHub : AnswerKind::unknownAbility;
}

std::string nameOfNode(const TreeNode& node) {
  if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
    return entry->device.shownName();
  }
  const auto* bus = std::get_if<TreeNode::USBBusEntry>(&node.kind);
  return bus == nullptr ? std::string() : bus->bus.displayName();
}

std::vector<std::string> identifiersOf(const std::vector<const TreeNode*>& nodes) {
  std::vector<std::string> ids;
  std::transform(nodes.begin(), nodes.end(), std::back_inserter(ids),
                 [](const TreeNode* node) { return node->id; });
  return ids;
}

} // namespace

void USBFindings::add(const USBPath& path, const Bottleneck& bottleneck, DeviceRole role) {
  const USBLink& limit = path.links[bottleneck.link];
  const USBLink& device = path.links.back();
  const bool isAbilityKnown = device.canExceed(bottleneck.actualGbps);
  if (!isWorthAnAnswer(role, bottleneck.actualGbps, isAbilityKnown)) {
    return;
  }
  const AnswerKind kind = kindOf(bottleneck, &limit == &device, isAbilityKnown);
  const bool isClaimed = kind != AnswerKind::unknownAbility;
  const bool isCableAsSlow =
      &limit == &device && limit.cableGbps && *limit.cableGbps <= bottleneck.actualGbps;
  insert({.kind = kind,
          .weight = isClaimed ? AnswerWeight::attention : AnswerWeight::note,
          .part = isCableAsSlow ? LimitingPart::cable : bottleneck.part,
          .limit = limit.node,
          .actualGbps = bottleneck.actualGbps,
          .possibleGbps = bottleneck.possibleGbps,
          .slowed = {device.node}});
}

void USBFindings::addSlowPort(const USBPath& path, const TreeNode& bus) {
  const USBLink& device = path.links.back();
  findings_.push_back({.kind = AnswerKind::slowPort,
                       .weight = AnswerWeight::note,
                       .part = LimitingPart::node,
                       .limit = &bus,
                       .actualGbps = device.gbps,
                       .possibleGbps = std::min(device.atLeastGbps, path.fastestPortGbps),
                       .slowed = {device.node}});
}

void USBFindings::insert(const Finding& finding) {
  const auto [entry, isNew] = indices_.emplace(Key(finding.limit, finding.kind), findings_.size());
  if (isNew) {
    findings_.push_back(finding);
    return;
  }
  Finding& known = findings_[entry->second];
  known.possibleGbps = std::max(known.possibleGbps, finding.possibleGbps);
  known.slowed.push_back(finding.slowed.front());
}

/// A hub that is known to slow one device need not be suspected of slowing another.
bool USBFindings::isExplainedByHub(const Finding& finding) const {
  return finding.kind == AnswerKind::unknownAbility &&
         indices_.contains(Key(finding.limit, AnswerKind::slowHub));
}

void USBFindings::addTo(AnswerList& answers) const {
  for (const Finding& finding : findings_) {
    if (isExplainedByHub(finding)) {
      continue;
    }
    const bool isOwnLink = finding.slowed.front() == finding.limit;
    const bool isAboutLimit =
        !isOwnLink && (finding.kind == AnswerKind::slowConnection || finding.slowed.size() > 1);
    const bool hasCount = isAboutLimit && finding.kind != AnswerKind::unknownAbility;
    const TreeNode& node = isAboutLimit ? *finding.limit : *finding.slowed.front();
    const auto count = static_cast<std::int64_t>(finding.slowed.size());
    answers.add(
        node,
        {.kind = finding.kind,
         .weight = finding.weight,
         .limitingNodeID = finding.limit->id,
         .limitingPart = finding.part,
         .otherNodeIDs = isAboutLimit ? identifiersOf(finding.slowed) : std::vector<std::string>(),
         .facts = {.actualGbps = finding.actualGbps,
                   .possibleGbps = finding.possibleGbps,
                   .count = hasCount ? std::optional(count) : std::nullopt}},
        {.node = nameOfNode(node), .limit = nameOfNode(*finding.limit)});
  }
}

} // namespace tamberline
