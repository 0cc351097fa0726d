#include "inspect/document_parts.h"

#include <array>
#include <cstdio>
#include <functional>

namespace tamberline {
namespace {

/// As people write it: 0x0210 is "2.10".
Document versionText(const std::optional<std::int64_t>& version) {
  if (!version) {
    return nullptr;
  }
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%x.%02x", static_cast<unsigned>(*version >> 8),
                static_cast<unsigned>(*version & 0xFF));
  return text.data();
}

void visit(const std::vector<TreeNode>& nodes,
           const std::function<void(const TreeNode& node)>& see) {
  for (const TreeNode& node : nodes) {
    see(node);
    visit(node.children, see);
  }
}

/// The description, behind the identifier of the node.
Document ofNode(const TreeNode& node, const Document& description) {
  Document document = {{"id", node.id}};
  document.update(description);
  return document;
}

} // namespace

Document describe(const USBAbility& ability) {
  return {
      {"provenGbps", orNull(ability.provenGbps)},      {"limitGbps", orNull(ability.limitGbps)},
      {"usbVersion", versionText(ability.usbVersion)}, {"linkGbps", orNull(ability.linkGbps)},
      {"isAuthorized", orNull(ability.isAuthorized)},
  };
}

Document describe(const LinkLimit& limit) {
  return {{"lanes", orNull(limit.lanes)}, {"gbpsOfLane", orNull(limit.gbpsOfLane)}};
}

Document describeAbilities(const std::vector<TreeNode>& tree) {
  Document list = Document::array();
  visit(tree, [&](const TreeNode& node) {
    const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind);
    if (entry != nullptr && entry->device.ability != USBAbility()) {
      list.push_back(ofNode(node, describe(entry->device.ability)));
    }
  });
  return list;
}

Document describeLinkLimits(const std::vector<TreeNode>& tree) {
  Document list = Document::array();
  visit(tree, [&](const TreeNode& node) {
    const auto* entry = std::get_if<TreeNode::TBDevice>(&node.kind);
    if (entry != nullptr && entry->device.linkLimit) {
      list.push_back(ofNode(node, describe(*entry->device.linkLimit)));
    }
  });
  return list;
}

} // namespace tamberline
