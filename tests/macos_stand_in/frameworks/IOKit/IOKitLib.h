// A stand-in: only what src/platform/macos/ uses, as the platform documents it.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <dispatch/dispatch.h>

#define IO_OBJECT_NULL (static_cast<io_object_t>(0))
#define KERN_SUCCESS 0
#define kIOMatchedNotification "IOServiceMatched"
#define kIOTerminatedNotification "IOServiceTerminate"

extern "C" {

typedef unsigned int mach_port_t;
typedef int kern_return_t;
typedef mach_port_t io_object_t;
typedef io_object_t io_iterator_t;
typedef char io_name_t[128];
typedef struct StandInNotificationPort* IONotificationPortRef;
typedef void (*IOServiceMatchingCallback)(void* refcon, io_iterator_t iterator);

extern const mach_port_t kIOMainPortDefault;

IONotificationPortRef IONotificationPortCreate(mach_port_t mainPort);
void IONotificationPortSetDispatchQueue(IONotificationPortRef port, dispatch_queue_t queue);
void IONotificationPortDestroy(IONotificationPortRef port);
CFMutableDictionaryRef IOServiceMatching(const char* name);
kern_return_t IOServiceAddMatchingNotification(IONotificationPortRef port,
                                               const io_name_t notificationType,
                                               CFDictionaryRef matching,
                                               IOServiceMatchingCallback callback, void* refcon,
                                               io_iterator_t* notification);
io_object_t IOIteratorNext(io_iterator_t iterator);
kern_return_t IOObjectRelease(io_object_t object);

} // extern "C"
