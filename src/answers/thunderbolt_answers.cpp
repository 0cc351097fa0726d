#include "answers/thunderbolt_answers.h"

#include <algorithm>

namespace tamberline {
namespace {

void findMissingPermission(const TreeNode& node, const ThunderboltDevice& device,
                           AnswerList& answers) {
  if (!device.isAuthorized.value_or(true)) {
    answers.add(node,
                {.kind = AnswerKind::notAuthorized,
                 .weight = AnswerWeight::attention,
                 .limitingNodeID = node.id,
                 .limitingPart = LimitingPart::node},
                {.node = device.name});
  }
}

/// Both directions together: a link of 120 Gb/s one way and 40 the other uses as many lanes as one
/// of 80 both ways.
struct LinkUse {
  double lanes = 0;
  double gbps = 0; // of one direction, on average
};

std::optional<LinkUse> useOf(const TrueLink& link) {
  if (!link.transmitGbps || !link.receiveGbps || !link.transmitLanes || !link.receiveLanes) {
    return std::nullopt;
  }
  return LinkUse{static_cast<double>(*link.transmitLanes + *link.receiveLanes) / 2,
                 (*link.transmitGbps + *link.receiveGbps) / 2};
}

void findSlowLink(const TreeNode& node, const ThunderboltDevice& device, AnswerList& answers) {
  const std::optional<LinkUse> use = device.link ? useOf(*device.link) : std::nullopt;
  if (!use || !device.linkLimit || !device.linkLimit->lanes) {
    return;
  }
  const std::int64_t lanes = *device.linkLimit->lanes;
  const double gbpsOfLane = device.linkLimit->gbpsOfLane.value_or(use->gbps / use->lanes);
  const double possibleGbps = static_cast<double>(lanes) * gbpsOfLane;
  if (use->gbps >= possibleGbps) {
    return;
  }
  const bool lacksLane = use->lanes == 1 && lanes > 1;
  answers.add(node,
              {.kind = AnswerKind::slowThunderboltLink,
               .weight = AnswerWeight::attention,
               .limitingNodeID = node.id,
               .limitingPart = LimitingPart::connection,
               .facts = {.actualGbps = use->gbps,
                         .possibleGbps = possibleGbps,
                         .count = lacksLane ? std::optional(lanes) : std::nullopt}},
              {.node = device.name});
}

} // namespace

void findThunderboltAnswers(const TreeNode& node, AnswerList& answers) {
  if (const auto* entry = std::get_if<TreeNode::TBDevice>(&node.kind)) {
    findMissingPermission(node, entry->device, answers);
    findSlowLink(node, entry->device, answers);
  }
}

} // namespace tamberline
