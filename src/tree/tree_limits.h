#pragma once

#include "tree/port_tree.h"

#include <cstddef>

namespace tamberline {

constexpr std::size_t mostTreeNodes = 65'536;
/// Bytes of the names and identifiers of all nodes. Each node repeats those of all that it hangs
/// on.
constexpr std::size_t mostTreeText = 32'000'000;

/// Whether the port tree would be larger than that of any machine, which few bytes are enough for:
/// the devices of a port hang under every Thunderbolt bus of its number, and a name of a megabyte
/// stands in the path of everything behind it. Told without building the tree; each add-on bus
/// counts as if it hung on the device with the longest path.
bool exceedsTreeLimits(const PortTreeInputs& inputs);

} // namespace tamberline
