#include "platform/this_machine.h"

#include "platform/linux/udisks/udisks_ejector.h"
#include "platform/posix/posix_volume_files.h"

#include <utility>

namespace tamberline {

ScannerServices thisMachine(std::shared_ptr<MainQueue> queue) {
  const auto volumes = std::make_shared<PosixVolumeFiles>();
  return {.acquisition = {.machine = sourceOfThisMachine(), .queue = std::move(queue)},
          .events = eventsOfThisMachine(),
          .benchmark = std::make_shared<Benchmark>(volumes),
          .ejector = std::make_shared<UDisksEjector>(),
          .volumes = volumes};
}

} // namespace tamberline
