#include "platform/event_loop.h"

namespace tamberline {

/// Does nothing: the system's notifications come through descriptors, which every event loop
/// watches.
void useSystemEventLoop() {}

} // namespace tamberline
