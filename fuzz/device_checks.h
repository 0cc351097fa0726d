#pragma once

#include "model/usb_records.h"
#include "tree/tree_node.h"

#include <vector>

namespace tamberline {

/// `merged` is the result of merging the hubs of `buses`: every device without a container
/// identifier must still be there, and for every identifier at least one device.
void requireNothingLost(const std::vector<USBBus>& buses, const std::vector<USBBus>& merged);

/// No two nodes may share an identifier, unless a key with a slash or a number sign spells the path
/// of another.
void requireUniqueIdentifiers(const std::vector<TreeNode>& tree);

} // namespace tamberline
