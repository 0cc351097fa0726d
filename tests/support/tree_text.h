#pragma once

#include "tree/tree_node.h"

#include <string>
#include <vector>

namespace tamberline {

/// A tree as indented text, one node per line: its kind and the name of its record.
///
///     port 1
///       tb Harbour Dock
///         bus USB 3.1 Bus
///           usb Quarry SSD (10 Gb/s, 900 mA)
std::string treeText(const std::vector<TreeNode>& nodes);

} // namespace tamberline
