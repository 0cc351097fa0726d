// What draws the symbols is the platform's, which also chooses the drawing for each name.
#pragma once

#include <QImage>

#include <string_view>

namespace tamberline {

/// A square, at least one pixel wide, transparent where the symbol is not. What is white in it is a
/// hole; the other colours do not count. A null image when the platform does not have the symbol.
/// Any thread, one at a time.
QImage symbolDrawing(std::string_view symbol, int pixels);

} // namespace tamberline
