#include "platform/background_tasks.h"

namespace tamberline {

/// Does nothing: threads already have the program's normal priority, and raising it requires
/// privileges that the program does not have.
void becomeUserInitiatedTask() {}

} // namespace tamberline
