// Each platform draws the symbols and chooses the drawing for each name.
#pragma once

#include <QImage>

#include <string_view>

namespace tamberline {

/// A square, at least one pixel wide, transparent outside the symbol. White parts are holes; the
/// other colours do not matter. A null image if the platform does not have the symbol. May be
/// called on any thread, one at a time.
QImage symbolDrawing(std::string_view symbol, int pixels);

} // namespace tamberline
