#include "tree/search_entries.h"

#include "base/overloaded.h"
#include "base/text.h"

#include <optional>
#include <utility>

namespace tamberline {
namespace {

/// What a node adds to the index and to the trail of the nodes below it.
struct Contribution {
  std::optional<SearchEntry> entry;
  std::optional<std::string> trailName;
};

Contribution device(const TreeNode& node, const std::string& name, const std::string& detail) {
  return {SearchEntry{node.id, name, detail, {}}, name};
}

Contribution contributionOf(const TreeNode& node) {
  return std::visit(Overloaded{
                        [](const TreeNode::TBPort& port) {
                          return Contribution{std::nullopt, port.bus.displayName()};
                        },
                        [&](const TreeNode::TBDevice& entry) {
                          return device(node, entry.device.name, entry.device.vendorName);
                        },
                        [](const TreeNode::USBBusEntry& entry) {
                          return Contribution{std::nullopt, entry.bus.displayName()};
                        },
                        [&](const TreeNode::USBDeviceEntry& entry) {
                          return device(node, entry.device.shownName(), entry.device.manufacturer);
                        },
                        [&](const TreeNode::Charger& entry) {
                          return device(node, entry.charger.name, entry.charger.manufacturer);
                        },
                        [](const TreeNode::ChargingOnly&) { return Contribution{}; },
                    },
                    node.kind);
}

void appendEntries(const std::vector<TreeNode>& nodes, std::vector<std::string>& trail,
                   std::vector<SearchEntry>& entries) {
  for (const TreeNode& node : nodes) {
    Contribution contribution = contributionOf(node);
    if (contribution.entry) {
      contribution.entry->breadcrumb = joined(trail, " › ");
      entries.push_back(std::move(*contribution.entry));
    }
    if (node.hasChildren() && contribution.trailName) {
      trail.push_back(std::move(*contribution.trailName));
      appendEntries(node.children, trail, entries);
      trail.pop_back();
    }
  }
}

} // namespace

std::vector<SearchEntry> flattenSearchable(const std::vector<TreeNode>& nodes,
                                           const std::vector<std::string>& trail) {
  std::vector<SearchEntry> entries;
  std::vector<std::string> currentTrail = trail;
  appendEntries(nodes, currentTrail, entries);
  return entries;
}

} // namespace tamberline
