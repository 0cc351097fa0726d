#pragma once

#include "acquisition/machine_source.h"
#include "platform/macos/mount_table.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// Makes every release of the system answer like the older ones. Since release 26 the report's USB
/// section is empty and another one, which knows no volumes, holds the devices; asked for the USB
/// section, this source then puts it together from the newer one, the registry and the mount table.
/// Everything else, and the USB section wherever that gives nothing, is the reports' own answer. A
/// newer section that is too large to be read is handed on as it is, so that its reading fails.
class MacMachine final : public MachineSource {
public:
  using MountTableReader = std::function<std::vector<Mount>()>;

  /// `reports` answers as a Mac of any release does. `readMountTable` is called on any thread,
  /// several at once.
  MacMachine(std::shared_ptr<MachineSource> reports, MountTableReader readMountTable);

  std::string answer(Question question) override;

private:
  std::shared_ptr<MachineSource> reports_;
  MountTableReader readMountTable_;
};

} // namespace tamberline
