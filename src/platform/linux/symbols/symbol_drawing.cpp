#include "symbols/symbol_drawing.h"

#include "platform/linux/symbols/art_drawing.h"
#include "platform/linux/symbols/symbol_art.h"

namespace tamberline {

QImage symbolDrawing(std::string_view symbol, int pixels) {
  const std::string_view art = artOf(symbol);
  return art.empty() ? QImage() : drawnArt(art, pixels);
}

} // namespace tamberline
