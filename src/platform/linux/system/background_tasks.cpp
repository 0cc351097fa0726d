#include "platform/background_tasks.h"

namespace tamberline {

/// Nothing: a thread already runs with the priority of the program that a person started, and
/// raising it takes privileges that the program does not have.
void becomeUserInitiatedTask() {}

} // namespace tamberline
