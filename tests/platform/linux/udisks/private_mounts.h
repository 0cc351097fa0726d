#pragma once

#include <functional>
#include <string>

namespace tamberline {

/// Does something on a separate thread with private mounts. They are gone once it and the programs
/// that it started have ended. There, /run and /var/lib, which has the disk service's data, are
/// empty, and /sys cannot be written. If that is impossible, does nothing and returns what is
/// missing; empty if it was done.
std::string doWithPrivateMounts(const std::function<void()>& something);

} // namespace tamberline
