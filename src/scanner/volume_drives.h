// Which volumes a scan shows, and which of them share a drive.
#pragma once

#include "tree/tree_node.h"

#include <set>
#include <string>
#include <vector>

namespace tamberline {

/// The mount points of all volumes of all devices in the tree.
std::set<std::string> mountPointsIn(const std::vector<TreeNode>& tree);

/// The mount points of all volumes of the device that has one at this mount point, that one among
/// them; that one alone where no device is known to have it.
std::set<std::string> mountPointsOfDrive(const std::vector<TreeNode>& tree,
                                         const std::string& mountPoint);

} // namespace tamberline
