#include "platform/macos/native_panel.h"

#import <AppKit/AppKit.h>

namespace tamberline {
namespace {

/// Nil if the view's window is not a panel.
NSPanel* panelOf(NativeView view) {
  NSWindow* const window = [reinterpret_cast<NSView*>(view) window];
  return [window isKindOfClass:[NSPanel class]] ? static_cast<NSPanel*>(window) : nil;
}

} // namespace

/// Windows of a hidden application are not shown, so it is unhidden first.
void prepareNativePanel(NativeView view) {
  NSPanel* const panel = panelOf(view);
  if (panel == nil) {
    return;
  }
  if ([NSApp isHidden]) {
    [NSApp unhideWithoutActivation];
  }
  [panel setStyleMask:[panel styleMask] | NSWindowStyleMaskNonactivatingPanel];
  [panel setHidesOnDeactivate:NO];
  [panel setLevel:NSStatusWindowLevel];
}

void orderNativePanelFront(NativeView view) {
  [panelOf(view) orderFrontRegardless];
}

} // namespace tamberline
