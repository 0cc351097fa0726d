#pragma once

#include "platform/child_program.h"
#include "support/temporary_folder.h"
namespace tamberline {

/// A bus for the running test, which uses it as the real one. Everything is allowed on it.
class PrivateBus {
public:
  /// Keeps its configuration in the folder.
  explicit PrivateBus(const TemporaryFolder& folder);

  /// Makes every PrivateBus of this process the system bus or the session bus. Call it once, before
  /// the first one is used: the bus library reads the address only once.
  static void becomeSystemBus();
  static void becomeSessionBus();

private:
  ChildProgram daemon_;
};

} // namespace tamberline
