// A stand-in: only what src/platform/macos/ uses, as the platform documents it. fake_app_kit.mm
// implements windows, the application and its events, fake_drawing.mm images and drawing.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>
#include <cstddef>
#include <cstdint>

typedef double CGFloat;
struct CGPoint {
  CGFloat x;
  CGFloat y;
};
struct CGSize {
  CGFloat width;
  CGFloat height;
};
struct CGRect {
  CGPoint origin;
  CGSize size;
};
typedef CGSize NSSize;
typedef CGRect NSRect;
typedef struct CGColorSpace* CGColorSpaceRef;
typedef struct CGContext* CGContextRef;

enum CGImageAlphaInfo : std::uint32_t { kCGImageAlphaPremultipliedFirst = 2 };
enum : std::uint32_t { kCGBitmapByteOrder32Little = 2 << 12 };
#define kCGBitmapByteOrder32Host kCGBitmapByteOrder32Little
enum CGBlendMode : std::int32_t { kCGBlendModeSourceIn = 18 };

extern "C" {

extern const CFStringRef kCGColorSpaceSRGB;

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);
CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
                                   std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                   CGColorSpaceRef space, std::uint32_t bitmapInfo);
void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode);
void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha);
void CGContextFillRect(CGContextRef context, CGRect rectangle);
CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height);
NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height);

} // extern "C"

#ifdef __OBJC__

typedef signed char BOOL;
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef CGFloat NSFontWeight;
extern const NSFontWeight NSFontWeightRegular;

__attribute__((objc_root_class))
@interface NSObject {
  Class isa;
}
+ (instancetype)alloc;
+ (Class)class;
- (instancetype)init;
- (instancetype)retain;
- (void)release;
- (BOOL)isKindOfClass:(Class)aClass;
@end

@interface NSString : NSObject
+ (instancetype)stringWithUTF8String:(const char*)text;
@end

@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight;
@end

@interface NSImage : NSObject
+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description;
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration;
- (void)setTemplate:(BOOL)isTemplate;
- (NSSize)size;
- (void)drawInRect:(NSRect)rectangle;
@end

@interface NSGraphicsContext : NSObject
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)isFlipped;
+ (void)setCurrentContext:(NSGraphicsContext*)context;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

typedef NSUInteger NSWindowStyleMask;
enum : NSWindowStyleMask {
  NSWindowStyleMaskUtilityWindow = 1 << 4,
  NSWindowStyleMaskNonactivatingPanel = 1 << 7,
};
typedef NSInteger NSWindowLevel;
static const NSWindowLevel NSStatusWindowLevel = 25;

@interface NSWindow : NSObject
@property NSWindowStyleMask styleMask;
@property BOOL hidesOnDeactivate;
@property NSWindowLevel level;
- (void)orderFrontRegardless;
@end

@interface NSPanel : NSWindow
@end

@interface NSView : NSObject
@property(readonly, assign) NSWindow* window;
@end

@interface NSApplication : NSObject
@property(getter=isActive, readonly) BOOL active;
@property(getter=isHidden, readonly) BOOL hidden;
- (void)hide:(id)sender;
- (void)unhideWithoutActivation;
@end

extern "C" NSApplication* NSApp;

typedef unsigned long long NSEventMask;
enum : NSEventMask {
  NSEventMaskLeftMouseDown = 1ULL << 1,
  NSEventMaskRightMouseDown = 1ULL << 3,
  NSEventMaskOtherMouseDown = 1ULL << 25,
};

@interface NSEvent : NSObject
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))block;
+ (void)removeMonitor:(id)eventMonitor;
@end

@interface NSAppleEventDescriptor : NSObject
@end

@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler
            andSelector:(SEL)handleEventSelector
          forEventClass:(AEEventClass)eventClass
             andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end

#endif
