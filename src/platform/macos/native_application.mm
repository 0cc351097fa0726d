#include "platform/macos/native_application.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>
#include <utility>

@interface TamberlineReopenReceiver : NSObject {
@public
  const std::function<void()>* requested_;
}
- (void)reopen:(NSAppleEventDescriptor*)event reply:(NSAppleEventDescriptor*)reply;
@end

@implementation TamberlineReopenReceiver
- (void)reopen:(NSAppleEventDescriptor*)event reply:(NSAppleEventDescriptor*)reply {
  (*requested_)();
}
@end

namespace tamberline {

OutsideClicks::OutsideClicks(std::function<void()> clicked) : clicked_(std::move(clicked)) {
  constexpr NSEventMask presses =
      NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown | NSEventMaskOtherMouseDown;
  const id monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:presses
                                                            handler:^(NSEvent*) {
                                                              const auto clickedNow = clicked_;
                                                              clickedNow();
                                                            }];
  monitor_ = [monitor retain];
}

OutsideClicks::~OutsideClicks() {
  const id monitor = static_cast<id>(monitor_);
  if (monitor != nil) {
    [NSEvent removeMonitor:monitor];
    [monitor release];
  }
}

ReopenRequests::ReopenRequests(std::function<void()> requested) : requested_(std::move(requested)) {
  TamberlineReopenReceiver* const receiver = [[TamberlineReopenReceiver alloc] init];
  receiver->requested_ = &requested_;
  [[NSAppleEventManager sharedAppleEventManager] setEventHandler:receiver
                                                     andSelector:@selector(reopen:reply:)
                                                   forEventClass:kCoreEventClass
                                                      andEventID:kAEReopenApplication];
  receiver_ = receiver;
}

ReopenRequests::~ReopenRequests() {
  [[NSAppleEventManager sharedAppleEventManager]
      removeEventHandlerForEventClass:kCoreEventClass
                           andEventID:kAEReopenApplication];
  [static_cast<id>(receiver_) release];
}

void hideActiveApplication() {
  if ([NSApp isActive]) {
    [NSApp hide:nil];
  }
}

} // namespace tamberline
