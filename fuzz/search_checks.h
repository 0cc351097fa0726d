#pragma once

#include "tree/tree_node.h"

#include <string_view>
#include <vector>

namespace tamberline {

/// Searches the tree and checks the results.
void requireSoundSearch(const std::vector<TreeNode>& tree, std::string_view searchText);

} // namespace tamberline
