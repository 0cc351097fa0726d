#include "tree/node_identifiers.h"

#include "base/text.h"

#include <unordered_map>
#include <utility>

namespace tamberline {
namespace {

void appendContainerIDs(const std::vector<TreeNode>& nodes, std::vector<std::string>& ids) {
  for (const TreeNode& node : nodes) {
    if (node.hasChildren() || std::holds_alternative<TreeNode::TBPort>(node.kind)) {
      ids.push_back(node.id);
    }
    appendContainerIDs(node.children, ids);
  }
}

} // namespace

std::vector<TreeNode> assignStableIDs(std::vector<TreeNode> nodes, const std::string& parentPath) {
  std::unordered_map<std::string, std::size_t> countOfKey;
  for (TreeNode& node : nodes) {
    const std::string key = node.localKey();
    const std::size_t earlierSiblings = countOfKey[key]++;
    node.id = parentPath;
    node.id.append("/").append(key);
    if (earlierSiblings > 0) {
      node.id.append("#").append(std::to_string(earlierSiblings));
    }
    node.children = assignStableIDs(std::move(node.children), node.id);
  }
  return nodes;
}

std::vector<std::string> allContainerIDs(const std::vector<TreeNode>& nodes) {
  std::vector<std::string> ids;
  appendContainerIDs(nodes, ids);
  return ids;
}

std::vector<std::string> ancestorIDs(std::string_view id) {
  std::vector<std::string> ids;
  std::string path;
  for (const std::string_view piece : splitNonEmpty(id, '/')) {
    path.append("/").append(piece);
    ids.push_back(path);
  }
  return ids;
}

} // namespace tamberline
