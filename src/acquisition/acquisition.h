#pragma once

#include "acquisition/machine_source.h"
#include "async/main_queue.h"

#include <memory>

namespace tamberline {

/// What every acquisition needs of the outside world. Background tasks may outlive the caller, so
/// both are shared.
struct Acquisition {
  std::shared_ptr<MachineSource> machine;
  std::shared_ptr<MainQueue> queue;
};

} // namespace tamberline
