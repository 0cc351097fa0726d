#include "macos_stand_in/fake_mac.h"

#include <CoreFoundation/CoreFoundation.h>
#include <IOKit/IOKitLib.h>
#include <IOKit/ps/IOPowerSources.h>
#include <algorithm>
#include <cstring>
#include <map>
#include <memory>

struct StandInString {
  std::string bytes;
};
struct StandInArray {
  std::vector<StandInString> texts;
};
struct StandInDictionary {
  std::string className;
};
struct StandInRunLoop {};
struct StandInRunLoopSource {};
struct StandInNotificationPort {};
struct StandInDispatchQueue {};

namespace {

using tamberline::FakeMac;

struct Registration {
  IOServiceMatchingCallback callback = nullptr;
  void* context = nullptr;
  io_iterator_t iterator = 0;
};

/// The objects behind the handles that the calls return.
struct Handles {
  StandInNotificationPort port;
  StandInDispatchQueue mainQueue;
  StandInRunLoop mainLoop;
  StandInRunLoopSource powerSource;
  StandInString defaultMode;
  StandInArray languages;
  std::vector<std::unique_ptr<StandInDictionary>> dictionaries;
  std::vector<Registration> registrations;
  std::map<io_iterator_t, int> remaining;
  IOPowerSourceCallbackType powerCallback = nullptr;
  void* powerContext = nullptr;
  unsigned lastObject = 100;
};

Handles& handles() {
  static Handles handles;
  return handles;
}

void note(const std::string& call) {
  FakeMac::get().calls.push_back(call);
}

} // namespace

namespace tamberline {

FakeMac& FakeMac::get() {
  static FakeMac mac;
  return mac;
}

void FakeMac::reset() {
  get() = {};
  handles().registrations.clear();
  handles().remaining.clear();
  handles().dictionaries.clear();
  handles().powerCallback = nullptr;
}

void FakeMac::notifyRegistration(std::size_t index, int objectCount) {
  const Registration& registration = handles().registrations.at(index);
  handles().remaining[registration.iterator] += objectCount;
  registration.callback(registration.context, registration.iterator);
}

void FakeMac::notifyPowerSource() const {
  handles().powerCallback(handles().powerContext);
}

} // namespace tamberline

extern "C" {

const CFRunLoopMode kCFRunLoopDefaultMode = &handles().defaultMode;
const mach_port_t kIOMainPortDefault = 7;

void CFRelease(CFTypeRef object) {
  note(object == &handles().powerSource ? "release power source" : "release list");
  --FakeMac::get().heldReferences;
}

CFIndex CFArrayGetCount(CFArrayRef array) {
  return static_cast<CFIndex>(array->texts.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
  return &array->texts.at(static_cast<std::size_t>(index));
}

/// In UTF-16 units; the tests use one unit for each character.
CFIndex CFStringGetLength(CFStringRef text) {
  return std::count_if(text->bytes.begin(), text->bytes.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  });
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding) {
  return encoding == kCFStringEncodingUTF8 ? 3 * length : 0;
}

Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex bufferSize,
                           CFStringEncoding encoding) {
  const auto needed = static_cast<CFIndex>(text->bytes.size()) + 1;
  if (encoding != kCFStringEncodingUTF8 || bufferSize < needed || text->bytes == "unreadable") {
    return 0;
  }
  std::memcpy(buffer, text->bytes.c_str(), static_cast<std::size_t>(needed));
  return 1;
}

CFArrayRef CFLocaleCopyPreferredLanguages(void) {
  if (!FakeMac::get().givesLanguages) {
    return nullptr;
  }
  handles().languages.texts.clear();
  for (const std::string& language : FakeMac::get().languages) {
    handles().languages.texts.push_back({language});
  }
  ++FakeMac::get().heldReferences;
  return &handles().languages;
}

CFRunLoopRef CFRunLoopGetMain(void) {
  return &handles().mainLoop;
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode) {
  const bool isMain = loop == &handles().mainLoop && mode == kCFRunLoopDefaultMode;
  note(std::string("add ") +
       (source == &handles().powerSource ? "power source" : "unknown source") +
       (isMain ? " to the main loop" : " elsewhere"));
}

void CFRunLoopRemoveSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode) {
  const bool isMain = loop == &handles().mainLoop && mode == kCFRunLoopDefaultMode;
  note(std::string("remove ") +
       (source == &handles().powerSource ? "power source" : "unknown source") +
       (isMain ? " from the main loop" : " elsewhere"));
}

dispatch_queue_t dispatch_get_main_queue(void) {
  return &handles().mainQueue;
}

IONotificationPortRef IONotificationPortCreate(mach_port_t mainPort) {
  note(mainPort == kIOMainPortDefault ? "create port" : "create port elsewhere");
  return FakeMac::get().givesNotificationPort ? &handles().port : nullptr;
}

void IONotificationPortSetDispatchQueue(IONotificationPortRef port, dispatch_queue_t queue) {
  const bool isMain = port == &handles().port && queue == &handles().mainQueue;
  note(isMain ? "deliver on the main queue" : "deliver elsewhere");
}

void IONotificationPortDestroy(IONotificationPortRef port) {
  note(port == &handles().port ? "destroy port" : "destroy unknown port");
}

CFMutableDictionaryRef IOServiceMatching(const char* name) {
  handles().dictionaries.push_back(std::make_unique<StandInDictionary>(StandInDictionary{name}));
  ++FakeMac::get().heldReferences;
  return handles().dictionaries.back().get();
}

/// Takes over the reference to `matching`, even if it fails.
kern_return_t IOServiceAddMatchingNotification(IONotificationPortRef port,
                                               const io_name_t notificationType,
                                               CFDictionaryRef matching,
                                               IOServiceMatchingCallback callback, void* refcon,
                                               io_iterator_t* notification) {
  FakeMac& mac = FakeMac::get();
  --mac.heldReferences;
  note(std::string(port == &handles().port ? "watch " : "watch elsewhere ") + notificationType +
       " " + matching->className);
  if (std::count(mac.refusedClasses.begin(), mac.refusedClasses.end(), matching->className) > 0) {
    return -1;
  }
  *notification = ++handles().lastObject;
  ++mac.heldObjects;
  handles().remaining[*notification] = mac.attachedObjects;
  handles().registrations.push_back({callback, refcon, *notification});
  return KERN_SUCCESS;
}

io_object_t IOIteratorNext(io_iterator_t iterator) {
  int& remaining = handles().remaining.at(iterator);
  if (remaining == 0) {
    note("find none left");
    return IO_OBJECT_NULL;
  }
  --remaining;
  ++FakeMac::get().heldObjects;
  return ++handles().lastObject;
}

kern_return_t IOObjectRelease(io_object_t object) {
  const bool isIterator = handles().remaining.erase(object) > 0;
  note(isIterator ? "release iterator" : "release object");
  --FakeMac::get().heldObjects;
  return KERN_SUCCESS;
}

CFTimeInterval IOPSGetTimeRemainingEstimate(void) {
  return FakeMac::get().timeRemaining;
}

CFRunLoopSourceRef IOPSNotificationCreateRunLoopSource(IOPowerSourceCallbackType callback,
                                                       void* context) {
  handles().powerCallback = callback;
  handles().powerContext = context;
  if (!FakeMac::get().givesPowerSource) {
    return nullptr;
  }
  ++FakeMac::get().heldReferences;
  return &handles().powerSource;
}

} // extern "C"
