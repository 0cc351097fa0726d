#pragma once

#include <functional>
#include <string>

namespace tamberline {

/// Does something on a thread of its own whose mounts nobody else sees. They are gone when it and
/// the programs that it started have ended. There, /run and /var/lib, with the disk service's
/// notes, are empty, and nothing can be asked of the kernel through /sys. Says what is missing, and
/// does nothing, where that cannot be; empty when it was done.
std::string doWithPrivateMounts(const std::function<void()>& something);

} // namespace tamberline
