#pragma once

namespace tamberline {

/// Tells the system that a person waits for what the calling thread does, where a system asks.
void becomeUserInitiatedTask();

} // namespace tamberline
