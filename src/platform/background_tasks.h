#pragma once

namespace tamberline {

/// Gives the calling thread the priority of work that the user is waiting for, on systems that have
/// such a priority class.
void becomeUserInitiatedTask();

} // namespace tamberline
