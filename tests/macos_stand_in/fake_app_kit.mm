#include "macos_stand_in/fake_app_kit.h"

#import <AppKit/AppKit.h>
#include <cstddef>
#include <sstream>

// What the Objective-C runtime of this system provides.
extern "C" {
typedef id (*Method)(id, SEL, ...);
id class_createInstance(Class, std::size_t);
id object_dispose(id);
Method objc_msg_lookup(id, SEL);

// Every block literal refers to these.
void* _NSConcreteStackBlock[32];
void* _NSConcreteGlobalBlock[32];
}

namespace {

using tamberline::FakeAppKit;

/// The layout of a block, as compilers define it.
struct BlockLayout {
  void* kind;
  int flags;
  int reserved;
  void (*invoke)(void*, ...);
  const struct {
    unsigned long reserved;
    unsigned long size;
  } * descriptor;
};

struct Handles {
  std::vector<char> monitorBlock; // empty if there is no monitor
  id reopenHandler = nil;
  SEL reopenSelector = nullptr;
};

Handles& handles() {
  static Handles handles;
  return handles;
}

void note(const std::string& call) {
  FakeAppKit::get().calls.push_back(call);
}

std::string hexadecimal(unsigned long long number) {
  std::ostringstream text;
  text << std::hex << number;
  return text.str();
}

/// A block on the stack lives only as long as the function that contains it, so it is copied.
std::vector<char> copyOf(void (^block)(NSEvent*)) {
  const auto* const layout = reinterpret_cast<const BlockLayout*>(block);
  const auto* const bytes = reinterpret_cast<const char*>(layout);
  return {bytes, bytes + layout->descriptor->size};
}

bool isReopening(AEEventClass eventClass, AEEventID eventID) {
  return eventClass == kCoreEventClass && eventID == kAEReopenApplication;
}

} // namespace

@implementation NSObject
+ (instancetype)alloc {
  ++FakeAppKit::get().heldReferences;
  return class_createInstance(self, 0);
}
+ (Class)class {
  return self;
}
- (instancetype)init {
  return self;
}
- (instancetype)retain {
  ++FakeAppKit::get().heldReferences;
  return self;
}
/// The code under test holds no instance twice.
- (void)release {
  --FakeAppKit::get().heldReferences;
  object_dispose(self);
}
- (BOOL)isKindOfClass:(Class)aClass {
  return aClass == [NSObject class];
}
@end

@implementation NSWindow
- (BOOL)isKindOfClass:(Class)aClass {
  return aClass == [NSWindow class];
}
- (NSWindowStyleMask)styleMask {
  return NSWindowStyleMaskUtilityWindow;
}
- (void)setStyleMask:(NSWindowStyleMask)styleMask {
  note("style " + hexadecimal(styleMask));
}
- (BOOL)hidesOnDeactivate {
  return YES;
}
- (void)setHidesOnDeactivate:(BOOL)hides {
  note(hides ? "hide when inactive" : "stay when inactive");
}
- (NSWindowLevel)level {
  return 0;
}
- (void)setLevel:(NSWindowLevel)level {
  note("level " + std::to_string(level));
}
- (void)orderFrontRegardless {
  note("order front");
}
@end

@implementation NSPanel
- (BOOL)isKindOfClass:(Class)aClass {
  return aClass == [NSPanel class];
}
@end

@interface StandInView : NSView {
@public
  NSWindow* window_;
}
@end

@implementation NSView
@dynamic window;
@end

@implementation StandInView
- (NSWindow*)window {
  return window_;
}
@end

@implementation NSApplication
- (BOOL)isActive {
  return FakeAppKit::get().isActive ? YES : NO;
}
- (BOOL)isHidden {
  return FakeAppKit::get().isHidden ? YES : NO;
}
- (void)hide:(id)sender {
  note(sender == nil ? "hide" : "hide for a sender");
}
- (void)unhideWithoutActivation {
  note("unhide without activation");
}
@end

@implementation NSEvent
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))block {
  note("monitor " + hexadecimal(mask));
  if (!FakeAppKit::get().givesMonitor) {
    return nil;
  }
  handles().monitorBlock = copyOf(block);
  return self;
}
/// The class itself stands for its monitor.
+ (id)retain {
  ++FakeAppKit::get().heldReferences;
  return self;
}
+ (void)release {
  --FakeAppKit::get().heldReferences;
}
+ (void)removeMonitor:(id)eventMonitor {
  note(eventMonitor == self ? "remove monitor" : "remove unknown monitor");
  handles().monitorBlock.clear();
}
@end

@implementation NSAppleEventDescriptor
@end

@implementation NSAppleEventManager
+ (NSAppleEventManager*)sharedAppleEventManager {
  static NSAppleEventManager* const manager = class_createInstance(self, 0);
  return manager;
}
- (void)setEventHandler:(id)handler
            andSelector:(SEL)handleEventSelector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID {
  note(isReopening(eventClass, eventID) ? "handle reopening" : "handle something else");
  handles().reopenHandler = handler;
  handles().reopenSelector = handleEventSelector;
}
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID {
  note(isReopening(eventClass, eventID) ? "ignore reopening" : "ignore something else");
  handles().reopenHandler = nil;
}
@end

NSApplication* NSApp = nil;

namespace tamberline {
namespace {

NativeView viewIn(Class windowClass) {
  StandInView* const view = class_createInstance([StandInView class], 0);
  view->window_ = class_createInstance(windowClass, 0);
  return reinterpret_cast<NativeView>(view);
}

} // namespace

FakeAppKit& FakeAppKit::get() {
  static FakeAppKit kit;
  return kit;
}

void FakeAppKit::reset() {
  get() = {};
  handles() = {};
  if (NSApp == nil) {
    NSApp = class_createInstance([NSApplication class], 0);
  }
}

NativeView FakeAppKit::viewInPanel() {
  static const NativeView view = viewIn([NSPanel class]);
  return view;
}

NativeView FakeAppKit::viewInWindow() {
  static const NativeView view = viewIn([NSWindow class]);
  return view;
}

bool FakeAppKit::clickElsewhere() const {
  std::vector<char> block = handles().monitorBlock; // the handler may remove the monitor
  if (block.empty()) {
    return false;
  }
  reinterpret_cast<const BlockLayout*>(block.data())->invoke(block.data(), nil);
  return true;
}

bool FakeAppKit::reopen() const {
  const id handler = handles().reopenHandler;
  if (handler == nil) {
    return false;
  }
  const SEL selector = handles().reopenSelector;
  objc_msg_lookup(handler, selector)(handler, selector, nil, nil);
  return true;
}

} // namespace tamberline
