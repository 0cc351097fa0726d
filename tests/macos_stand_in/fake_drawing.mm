#include "macos_stand_in/fake_drawing.h"

#import <AppKit/AppKit.h>
#include <cmath>
#include <sstream>

/// The pixels of a bitmap, each with alpha in its highest byte. The first row is the uppermost.
struct CGContext {
  std::uint32_t* pixels;
  std::size_t width;
  std::size_t height;
  CGBlendMode mode;
  CGFloat alpha;
};
struct CGColorSpace {};
struct StandInString {};

extern "C" id class_createInstance(Class, std::size_t); // of the Objective-C runtime of this system

namespace {

using tamberline::FakeDrawing;

struct Handles {
  StandInString sRGB;
  CGColorSpace colors;
  CGContext context;
  CGContextRef current = nullptr;
};

Handles& handles() {
  static Handles handles;
  return handles;
}

template <typename... Parts>
void note(const Parts&... parts) {
  std::ostringstream text;
  (text << ... << parts);
  FakeDrawing::get().calls.push_back(text.str());
}

/// Calls `change` with each pixel of the rectangle, whose origin is at the bottom.
template <typename Change>
void forEachPixel(const CGContext& context, const CGRect& rectangle, const Change& change) {
  const auto firstRow = static_cast<std::size_t>(std::lround(
      static_cast<double>(context.height) - rectangle.origin.y - rectangle.size.height));
  const auto firstColumn = static_cast<std::size_t>(std::lround(rectangle.origin.x));
  const auto rows = static_cast<std::size_t>(std::lround(rectangle.size.height));
  const auto columns = static_cast<std::size_t>(std::lround(rectangle.size.width));
  for (std::size_t row = firstRow; row < firstRow + rows; ++row) {
    for (std::size_t column = firstColumn; column < firstColumn + columns; ++column) {
      change(context.pixels[row * context.width + column]);
    }
  }
}

void noteRectangle(const char* call, const CGRect& rectangle) {
  note(call, " ", rectangle.origin.x, " ", rectangle.origin.y, " ", rectangle.size.width, " ",
       rectangle.size.height);
}

} // namespace

const NSFontWeight NSFontWeightRegular = 0;

// Pools are made by the compiler.
@interface NSAutoreleasePool : NSObject
- (void)drain;
@end

@implementation NSObject
+ (instancetype)alloc {
  return class_createInstance(self, 0);
}
+ (Class)class {
  return self;
}
- (instancetype)init {
  return self;
}
- (instancetype)retain {
  return self;
}
- (void)release {
}
- (BOOL)isKindOfClass:(Class)aClass {
  return aClass == [NSObject class];
}
@end

@implementation NSAutoreleasePool
+ (instancetype)alloc {
  static NSAutoreleasePool* const pool = class_createInstance(self, 0);
  ++FakeDrawing::get().openPools;
  return pool;
}
- (void)drain {
  --FakeDrawing::get().openPools;
}
@end

@interface StandInText : NSString {
@public
  const char* bytes_;
}
@end

@implementation NSString
/// Nil for invalid UTF-8.
+ (instancetype)stringWithUTF8String:(const char*)text {
  static StandInText* const string = class_createInstance([StandInText class], 0);
  static std::string bytes;
  bytes = text;
  string->bytes_ = bytes.c_str();
  return bytes == "\xff" ? nil : string;
}
@end

@implementation StandInText
@end

@implementation NSImageSymbolConfiguration
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight {
  static NSImageSymbolConfiguration* const configuration = class_createInstance(self, 0);
  note("configure ", pointSize, weight == NSFontWeightRegular ? " regular" : "");
  return configuration;
}
@end

@implementation NSImage
+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description {
  static NSImage* const image = class_createInstance(self, 0);
  const std::string symbol = static_cast<StandInText*>(name)->bytes_;
  note("symbol ", symbol, description == nil ? "" : " with a description");
  return symbol == FakeDrawing::get().knownSymbol ? image : nil;
}
- (NSImage*)imageWithSymbolConfiguration:(NSImageSymbolConfiguration*)configuration {
  note(configuration == nil ? "do not apply" : "apply");
  return self;
}
- (void)setTemplate:(BOOL)isTemplate {
  note(isTemplate ? "template" : "no template");
}
- (NSSize)size {
  return {FakeDrawing::get().symbolWidth, FakeDrawing::get().symbolHeight};
}
- (void)drawInRect:(NSRect)rectangle {
  noteRectangle("draw", rectangle);
  forEachPixel(*handles().current, rectangle, [](std::uint32_t& pixel) { pixel = 0xffffffff; });
}
@end

@implementation NSGraphicsContext
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)context flipped:(BOOL)isFlipped {
  static NSGraphicsContext* const graphics = class_createInstance(self, 0);
  note(isFlipped ? "flipped context" : "context");
  handles().current = context;
  return graphics;
}
+ (void)setCurrentContext:(NSGraphicsContext*)context {
  note(context == nil ? "no current context" : "current context");
}
+ (void)saveGraphicsState {
  ++FakeDrawing::get().savedGraphicsStates;
}
+ (void)restoreGraphicsState {
  --FakeDrawing::get().savedGraphicsStates;
}
@end

extern "C" {

const CFStringRef kCGColorSpaceSRGB = &handles().sRGB;

void CFRelease(CFTypeRef) {
  --FakeDrawing::get().heldReferences;
}

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name) {
  ++FakeDrawing::get().heldReferences;
  return name == kCGColorSpaceSRGB ? &handles().colors : nullptr;
}

CGContextRef CGBitmapContextCreate(void* data, std::size_t width, std::size_t height,
                                   std::size_t bitsPerComponent, std::size_t bytesPerRow,
                                   CGColorSpaceRef space, std::uint32_t bitmapInfo) {
  const bool isKnownLayout =
      bitmapInfo == (static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                     static_cast<std::uint32_t>(kCGBitmapByteOrder32Host)) &&
      bitsPerComponent == 8 && bytesPerRow == 4 * width && space == &handles().colors;
  if (!isKnownLayout || !FakeDrawing::get().givesContext) {
    return nullptr;
  }
  ++FakeDrawing::get().heldReferences;
  handles().context = {static_cast<std::uint32_t*>(data), width, height, {}, 0};
  return &handles().context;
}

void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode) {
  context->mode = mode;
}

void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
  note("gray ", gray);
  context->alpha = alpha;
}

/// Only with the blend mode in which the fill colour keeps the alpha of what it covers.
void CGContextFillRect(CGContextRef context, CGRect rectangle) {
  noteRectangle(context->mode == kCGBlendModeSourceIn && context->alpha == 1 ? "fill inside"
                                                                             : "fill",
                rectangle);
  forEachPixel(*context, rectangle, [](std::uint32_t& pixel) { pixel &= 0xff000000; });
}

CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}

NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}

} // extern "C"

namespace tamberline {

FakeDrawing& FakeDrawing::get() {
  static FakeDrawing drawing;
  return drawing;
}

void FakeDrawing::reset() {
  get() = {};
  handles().current = nullptr;
}

} // namespace tamberline
