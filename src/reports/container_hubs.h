#pragma once

#include "model/usb_records.h"

#include <vector>

namespace tamberline {

/// Folds devices that share a container identifier into one: a USB 3 hub shows itself once on a
/// USB 3 bus and once on a USB 2 bus, with its devices split between the two. The fastest instance
/// stays and takes over the children of all. A group whose instances contain each other in a way
/// that would lose devices or run in a loop is left as it is; where groups would hold each other in
/// a tree far deeper than any report, all are left as they are, since everything behind recurses.
std::vector<USBBus> mergeContainerHubs(const std::vector<USBBus>& buses);

} // namespace tamberline
