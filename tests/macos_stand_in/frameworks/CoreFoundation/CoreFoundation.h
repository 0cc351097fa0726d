// A stand-in: only what src/platform/macos/ uses, as the platform documents it.
#pragma once

extern "C" {

typedef long CFIndex;
typedef unsigned char Boolean;
typedef unsigned int CFStringEncoding;
typedef const void* CFTypeRef;
typedef const struct StandInString* CFStringRef;
typedef const struct StandInArray* CFArrayRef;
typedef const struct StandInDictionary* CFDictionaryRef;
typedef struct StandInDictionary* CFMutableDictionaryRef;
typedef struct StandInRunLoop* CFRunLoopRef;
typedef struct StandInRunLoopSource* CFRunLoopSourceRef;
typedef CFStringRef CFRunLoopMode;

enum : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };
extern const CFRunLoopMode kCFRunLoopDefaultMode;

void CFRelease(CFTypeRef object);

CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
CFIndex CFStringGetLength(CFStringRef text);
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize,
                           CFStringEncoding encoding);
CFArrayRef CFLocaleCopyPreferredLanguages(void);

CFRunLoopRef CFRunLoopGetMain(void);
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);
void CFRunLoopRemoveSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);

} // extern "C"
