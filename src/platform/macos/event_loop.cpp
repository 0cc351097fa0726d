#include "platform/event_loop.h"

#include <cstdlib>

namespace tamberline {

/// Without this variable, Qt waits for descriptors and timers only. Notifications of the I/O
/// registry come through the main dispatch queue, and those of the power source through the main
/// run loop.
void useSystemEventLoop() {
  constexpr int replacesValue = 1;
  setenv("QT_EVENT_DISPATCHER_CORE_FOUNDATION", "1", replacesValue);
}

} // namespace tamberline
