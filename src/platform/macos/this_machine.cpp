#include "platform/this_machine.h"

#include "platform/macos/disk_utility_ejector.h"
#include "platform/posix/child_process_runner.h"
#include "platform/posix/posix_volume_files.h"

#include <utility>

namespace tamberline {

ScannerServices thisMachine(std::shared_ptr<MainQueue> queue) {
  const auto volumes = std::make_shared<PosixVolumeFiles>();
  return {.acquisition = {.machine = sourceOfThisMachine(), .queue = std::move(queue)},
          .events = eventsOfThisMachine(),
          .benchmark = std::make_shared<Benchmark>(volumes),
          .ejector = std::make_shared<DiskUtilityEjector>(std::make_shared<ChildProcessRunner>()),
          .volumes = volumes};
}

} // namespace tamberline
