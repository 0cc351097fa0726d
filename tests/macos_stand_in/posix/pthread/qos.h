// Stands in for the Mac's header of this name where there is no Mac: what it declares of the
// priority class of a thread. Answered by threads.cpp.
#pragma once

enum qos_class_t : unsigned { QOS_CLASS_USER_INITIATED = 0x19 };

extern "C" int pthread_set_qos_class_self_np(qos_class_t priority, int relativePriority);
