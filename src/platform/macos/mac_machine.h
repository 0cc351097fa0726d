#pragma once

#include "acquisition/machine_source.h"
#include "platform/macos/mount_table.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// Answers in the format of older releases for every release of the system. Since release 26 the
/// report's USB section is empty, and the devices are in another section, which has no volumes.
/// This source then builds the USB section from the newer section, the registry and the mount
/// table. An empty USB section is returned unchanged if the newer section has no buses. A newer
/// section that is too large is also returned unchanged, so that the caller fails to decode it.
///
/// The Thunderbolt section loses its entries without hardware. All other answers are returned
/// unchanged.
class MacMachine final : public MachineSource {
public:
  using MountTableReader = std::function<std::vector<Mount>()>;

  /// `reports` answers like a Mac of any release. `readMountTable` may be called on any thread,
  /// several at once.
  MacMachine(std::shared_ptr<MachineSource> reports, MountTableReader readMountTable);

  std::string answer(Question question) override;

private:
  std::shared_ptr<MachineSource> reports_;
  MountTableReader readMountTable_;
};

} // namespace tamberline
