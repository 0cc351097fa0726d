// A stand-in: only what src/platform/macos/ uses, as the platform documents it.
#pragma once

extern "C" {

typedef struct StandInDispatchQueue* dispatch_queue_t;

dispatch_queue_t dispatch_get_main_queue(void);

} // extern "C"
