#include "platform/background_tasks.h"

#include <pthread/qos.h>

namespace tamberline {

/// A thread made without a class counts as one whose priority nobody asked for.
void becomeUserInitiatedTask() {
  pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
}

} // namespace tamberline
