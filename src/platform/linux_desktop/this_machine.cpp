#include "platform/this_machine.h"

#include "platform/linux_volumes/udisks_ejector.h"
#include "platform/posix/child_process_runner.h"
#include "platform/posix/posix_volume_files.h"
#include "scanner/silent_event_source.h"

#include <utility>

namespace tamberline {

ScannerOutside thisMachine(std::shared_ptr<MainQueue> queue) {
  return {
      .acquisition = {.tools = std::make_shared<ChildProcessRunner>(), .queue = std::move(queue)},
      .events = std::make_shared<SilentEventSource>(),
      .benchmark = std::make_shared<Benchmark>(std::make_shared<PosixVolumeFiles>()),
      .ejector = std::make_shared<UDisksEjector>()};
}

} // namespace tamberline
