// A stand-in: only what src/platform/macos/ uses, as the platform documents it.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#define kIOPSTimeRemainingUnlimited (static_cast<CFTimeInterval>(-2.0))

extern "C" {

typedef double CFTimeInterval;
typedef void (*IOPowerSourceCallbackType)(void* context);

CFTimeInterval IOPSGetTimeRemainingEstimate(void);
CFRunLoopSourceRef IOPSNotificationCreateRunLoopSource(IOPowerSourceCallbackType callback,
                                                       void* context);

} // extern "C"
