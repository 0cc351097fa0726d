#pragma once

#include "tree/tree_node.h"

#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// The same tree with identifiers that are the same in every scan of the same hardware: the path of
/// the local keys from the top, with "#1", "#2" … for the second and later of equal siblings. Two
/// identifiers can be equal only if a device's own key spells such a path.
std::vector<TreeNode> assignStableIDs(std::vector<TreeNode> nodes, const std::string& parentPath);

/// The nodes that can be expanded: those with children, and every port. In tree order.
std::vector<std::string> allContainerIDs(const std::vector<TreeNode>& nodes);

/// The nodes that must be expanded to show `id`, from the top down, including `id`. A key that
/// contains a slash gives a path that belongs to no node, which does no harm.
std::vector<std::string> ancestorIDs(std::string_view id);

} // namespace tamberline
