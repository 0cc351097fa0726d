// The volumes of a scan, and which of them share a drive.
#pragma once

#include "tree/tree_node.h"

#include <set>
#include <string>
#include <vector>

namespace tamberline {

/// The mount points of all volumes in the tree.
std::set<std::string> mountPointsIn(const std::vector<TreeNode>& tree);

/// The mount points of all volumes on the same device as `mountPoint`, including it. Only
/// `mountPoint` if no device in the tree has it.
std::set<std::string> mountPointsOfDrive(const std::vector<TreeNode>& tree,
                                         const std::string& mountPoint);

} // namespace tamberline
