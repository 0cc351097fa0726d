// The symbols that the panel and the menu bar use, each as a drawing on a square grid of 14 points.
#pragma once

#include <span>
#include <string_view>

namespace tamberline {

struct SymbolArt {
  std::string_view symbol;
  /// An SVG file with only what `drawnArt` understands.
  std::string_view svg;
};

/// In the order of the names.
std::span<const SymbolArt> symbolArt();

/// Empty for a symbol that has none.
std::string_view artOf(std::string_view symbol);

} // namespace tamberline
