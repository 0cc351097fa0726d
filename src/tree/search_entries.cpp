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

using Wording = std::string_view (*)(std::string_view name);

std::string_view asReported(std::string_view name) {
  return name;
}

/// Collects the entries of nodes and of everything below them.
class EntryWriter {
public:
  EntryWriter(std::vector<std::string> trail, Wording wording)
      : trail_(std::move(trail)), wording_(wording) {}

  void write(const std::vector<TreeNode>& nodes) {
    for (const TreeNode& node : nodes) {
      const Contribution contribution = contributionOf(node);
      if (contribution.entry) {
        append(*contribution.entry);
      }
      if (node.hasChildren() && contribution.trailName) {
        trail_.emplace_back(wording_(*contribution.trailName));
        write(node.children);
        trail_.pop_back();
      }
    }
  }

  std::vector<SearchEntry> take() { return std::move(entries_); }

private:
  void append(const SearchEntry& entry) {
    entries_.push_back({entry.id, std::string(wording_(entry.name)),
                        std::string(wording_(entry.detail)), joined(trail_, " › ")});
  }

  std::vector<std::string> trail_;
  Wording wording_;
  std::vector<SearchEntry> entries_;
};

} // namespace

std::vector<SearchEntry> flattenSearchable(const std::vector<TreeNode>& nodes,
                                           const std::vector<std::string>& trail) {
  EntryWriter writer(trail, asReported);
  writer.write(nodes);
  return writer.take();
}

std::vector<SearchEntry> shownSearchEntries(const std::vector<TreeNode>& nodes) {
  EntryWriter writer({}, trimmed);
  writer.write(nodes);
  return writer.take();
}

} // namespace tamberline
