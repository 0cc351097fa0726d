#pragma once

#include "acquisition/machine_source.h"
#include "async/main_queue.h"

#include <memory>

namespace tamberline {

/// What is needed to query a machine. Both members are shared, because background tasks may outlive
/// the caller.
struct Acquisition {
  std::shared_ptr<MachineSource> machine;
  std::shared_ptr<MainQueue> queue;
};

} // namespace tamberline
