#pragma once

#include "model/usb_records.h"

#include <vector>

namespace tamberline {

/// Merges devices that share a container identifier into one. A USB 3 hub appears once on a USB 3
/// bus and once on a USB 2 bus, with its devices split between the two. The fastest instance stays
/// and takes over the children of all. A group is left unmerged if its instances contain each other
/// in a way that would lose devices or form a cycle. If groups would contain each other in a tree
/// far deeper than any report, all are left unmerged, because later steps recurse.
std::vector<USBBus> mergeContainerHubs(const std::vector<USBBus>& buses);

} // namespace tamberline
