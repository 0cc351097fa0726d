#include "symbols/symbol_drawing.h"

#include "platform/linux/symbols/theme_drawing.h"
#include "platform/linux/symbols/theme_icons.h"

namespace tamberline {

QImage symbolDrawing(std::string_view symbol, int pixels) {
  const std::string_view icon = themeIconName(symbol);
  return icon.empty() ? QImage() : themeDrawing(icon, pixels);
}

} // namespace tamberline
