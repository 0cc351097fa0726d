#include "platform/background_tasks.h"

#include <pthread/qos.h>

namespace tamberline {

/// A thread without a quality-of-service class has an unspecified priority.
void becomeUserInitiatedTask() {
  pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
}

} // namespace tamberline
