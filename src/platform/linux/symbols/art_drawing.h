#pragma once

#include <QImage>

#include <string_view>

namespace tamberline {

/// Draws an SVG file of a symbol, in black with white holes, into a square of `pixels`. Understands
/// `path` (with M, L, H, V, C and Z), `circle` and `rect`, each with `fill`, `stroke` and
/// `stroke-width`, which the `svg` element gives defaults. Other elements are left out. Lines keep
/// the same width at a given size and are moved onto whole pixels, which a general SVG renderer
/// does not do. A null image if it is not an SVG file or `pixels` is not positive.
QImage drawnArt(std::string_view svg, int pixels);

} // namespace tamberline
