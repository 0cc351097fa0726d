#pragma once

#include "tree/port_tree.h"

#include <cstddef>

namespace tamberline {

constexpr std::size_t maxTreeNodes = 65'536;
/// Bytes of the names and identifiers of all nodes. Each node repeats those of all its ancestors.
constexpr std::size_t maxTreeText = 32'000'000;

/// Whether the port tree would be larger than that of any real machine. A few bytes are enough for
/// that: the devices of a port are shown under every Thunderbolt bus with its number, and a name of
/// a megabyte is in the path of everything behind it. Computed without building the tree; each
/// add-on bus counts as if it were on the device with the longest path.
bool exceedsTreeLimits(const PortTreeInputs& inputs);

} // namespace tamberline
