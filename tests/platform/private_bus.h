#pragma once

#include "platform/child_program.h"
#include "support/temporary_folder.h"
namespace tamberline {

/// A bus of the running test, which takes it for one of its own. Everybody may do everything on it.
class PrivateBus {
public:
  /// Keeps its configuration in the folder.
  explicit PrivateBus(const TemporaryFolder& folder);

  /// Makes every PrivateBus of this process the system bus, or the session's. Once, before any is
  /// asked for: the bus library reads the address a single time.
  static void becomeSystemBus();
  static void becomeSessionBus();

private:
  ChildProgram daemon_;
};

} // namespace tamberline
