#include "platform/macos/io_registry_events.h"
#include "platform/macos/mac_machine.h"
#include "platform/macos/mac_tools.h"
#include "platform/macos/mount_table.h"
#include "platform/posix/child_process_runner.h"
#include "platform/this_machine.h"

namespace tamberline {

std::shared_ptr<MachineSource> sourceOfThisMachine() {
  return std::make_shared<MacMachine>(
      std::make_shared<MacTools>(std::make_shared<ChildProcessRunner>()), mountTable);
}

std::shared_ptr<PortEventSource> eventsOfThisMachine() {
  return std::make_shared<IORegistryEvents>();
}

} // namespace tamberline
