// Replaces the Mac's header of this name on other systems: its declarations for the priority class
// of a thread. Implemented in threads.cpp.
#pragma once

enum qos_class_t : unsigned { QOS_CLASS_USER_INITIATED = 0x19 };

extern "C" int pthread_set_qos_class_self_np(qos_class_t priority, int relativePriority);
