#include "platform/this_machine.h"

#include "platform/macos/disk_utility_ejector.h"
#include "platform/macos/io_registry_events.h"
#include "platform/macos/mac_tool_runner.h"
#include "platform/macos/mount_table.h"
#include "platform/posix/child_process_runner.h"
#include "platform/posix/posix_volume_files.h"

#include <utility>

namespace tamberline {

ScannerOutside thisMachine(std::shared_ptr<MainQueue> queue) {
  const auto tools =
      std::make_shared<MacToolRunner>(std::make_shared<ChildProcessRunner>(), mountTable);
  const auto volumes = std::make_shared<PosixVolumeFiles>();
  return {.acquisition = {.tools = tools, .queue = std::move(queue)},
          .events = std::make_shared<IORegistryEvents>(),
          .benchmark = std::make_shared<Benchmark>(volumes),
          .ejector = std::make_shared<DiskUtilityEjector>(tools),
          .volumes = volumes};
}

} // namespace tamberline
