#pragma once

namespace tamberline {

/// Lets a program without windows receive the system's own notifications, on systems where Qt's
/// usual event loop for such programs ignores them. Call it before the application object is
/// created and before any thread is started.
void useSystemEventLoop();

} // namespace tamberline
