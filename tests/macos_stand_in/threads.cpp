#include "macos_stand_in/threads.h"

#include <cstdio>
#include <pthread/qos.h>

namespace {

std::vector<std::string> priorities;

} // namespace

namespace tamberline {

std::vector<std::string>& freshMacPriorities() {
  priorities.clear();
  return priorities;
}

} // namespace tamberline

int pthread_set_qos_class_self_np(qos_class_t priority, int relativePriority) {
  char text[32];
  std::snprintf(text, sizeof(text), "%x %d", static_cast<unsigned>(priority), relativePriority);
  priorities.emplace_back(text);
  return 0;
}
