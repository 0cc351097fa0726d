// Included before Qt's headers, which define keywords as macros.
#import <AppKit/AppKit.h>

#include "platform/macos/cf_reference.h"
#include "platform/macos/symbol_placement.h"
#include "symbols/symbol_drawing.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tamberline {
namespace {

/// The system's symbol as a template image, in which only the alpha channel matters; nil if the
/// system does not have it.
NSImage* systemSymbol(std::string_view symbol, double pointSize) {
  NSString* const name = [NSString stringWithUTF8String:std::string(symbol).c_str()];
  if (name == nil) {
    return nil;
  }
  NSImageSymbolConfiguration* const size =
      [NSImageSymbolConfiguration configurationWithPointSize:pointSize
                                                      weight:NSFontWeightRegular];
  NSImage* const image = [[NSImage imageWithSystemSymbolName:name
                                    accessibilityDescription:nil] imageWithSymbolConfiguration:size];
  [image setTemplate:YES];
  return image;
}

/// A context that draws into the pixels of `drawing`; null if the system cannot allocate it.
CFReference<CGContextRef> contextOn(QImage& drawing) {
  constexpr std::size_t bitsOfComponent = 8;
  constexpr auto layout = static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                          static_cast<std::uint32_t>(kCGBitmapByteOrder32Host);
  const CFReference<CGColorSpaceRef> colors(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  return CFReference<CGContextRef>(CGBitmapContextCreate(
      drawing.bits(), static_cast<std::size_t>(drawing.width()),
      static_cast<std::size_t>(drawing.height()), bitsOfComponent,
      static_cast<std::size_t>(drawing.bytesPerLine()), colors.get(), layout));
}

void draw(NSImage* image, CGContextRef context, const QRectF& place) {
  [NSGraphicsContext saveGraphicsState];
  [NSGraphicsContext setCurrentContext:[NSGraphicsContext graphicsContextWithCGContext:context
                                                                               flipped:NO]];
  [image drawInRect:NSMakeRect(place.x(), place.y(), place.width(), place.height())];
  [NSGraphicsContext restoreGraphicsState];
}

/// In dark mode the system may draw the symbol in white, which would not count as part of it.
void blacken(CGContextRef context, double side) {
  CGContextSetBlendMode(context, kCGBlendModeSourceIn);
  CGContextSetGrayFillColor(context, 0, 1);
  CGContextFillRect(context, CGRectMake(0, 0, side, side));
}

} // namespace

QImage symbolDrawing(std::string_view symbol, int pixels) {
  @autoreleasepool {
    NSImage* const image = systemSymbol(symbol, pixels);
    QImage drawing(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    if (image == nil || drawing.isNull()) {
      return {};
    }
    drawing.fill(Qt::transparent);
    const CFReference<CGContextRef> context = contextOn(drawing);
    if (!context) {
      return {};
    }
    const NSSize size = [image size];
    draw(image, context.get(), symbolPlacement({size.width, size.height}, pixels));
    blacken(context.get(), pixels);
    return drawing;
  }
}

} // namespace tamberline
